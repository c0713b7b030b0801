#include "support/failing_file_layer.h"

#include <algorithm>

namespace zentab::test {

namespace fs = std::filesystem;
using platform::OutputFile;
using platform::SystemFiles;

class FailingFile final : public OutputFile {
 public:
  FailingFile(FailingFileLayer& layer, std::unique_ptr<OutputFile> file)
      : layer_(layer), file_(std::move(file)) {}

  std::error_code Write(std::string_view bytes) override {
    if (const std::error_code error = layer_.Step("write")) return error;
    const std::size_t fitting = std::min(bytes.size(), layer_.bytesThatFit);
    if (layer_.bytesThatFit != FailingFileLayer::kNever) layer_.bytesThatFit -= fitting;
    if (const std::error_code error = file_->Write(bytes.substr(0, fitting))) return error;
    if (fitting == bytes.size() || layer_.losesBytesSilently) return {};
    return std::make_error_code(std::errc::no_space_on_device);
  }
  std::error_code Flush() override {
    const std::error_code error = layer_.Step("flush");
    return error ? error : file_->Flush();
  }
  std::error_code Size(std::uint64_t& size) override {
    const std::error_code error = layer_.Step("size");
    return error ? error : file_->Size(size);
  }
  std::error_code Truncate(std::uint64_t size) override {
    const std::error_code error = layer_.Step("truncate");
    return error ? error : file_->Truncate(size);
  }
  std::error_code Close() override {
    const std::error_code error = layer_.Step("close");
    const std::error_code systemError = file_->Close();
    return error ? error : systemError;
  }

 private:
  FailingFileLayer& layer_;
  std::unique_ptr<OutputFile> file_;
};

std::error_code FailingFileLayer::Step(const char* name) {
  if (steps_++ != failingStep) return {};
  failedStep = name;
  return std::make_error_code(std::errc::io_error);
}

std::error_code FailingFileLayer::Create(const fs::path& path, const fs::path& like,
                                         std::unique_ptr<OutputFile>& file) {
  if (const std::error_code error = Step("create")) return error;
  std::unique_ptr<OutputFile> real;
  if (const std::error_code error = SystemFiles().Create(path, like, real)) return error;
  file = std::make_unique<FailingFile>(*this, std::move(real));
  return {};
}

std::error_code FailingFileLayer::OpenForAppending(const fs::path& path,
                                                   std::unique_ptr<OutputFile>& file) {
  if (const std::error_code error = Step("open")) return error;
  std::unique_ptr<OutputFile> real;
  if (const std::error_code error = SystemFiles().OpenForAppending(path, real)) return error;
  file = std::make_unique<FailingFile>(*this, std::move(real));
  return {};
}

std::error_code FailingFileLayer::MoveOver(const fs::path& from, const fs::path& to) {
  const std::error_code error = Step("move");
  return error ? error : SystemFiles().MoveOver(from, to);
}

std::error_code FailingFileLayer::Remove(const fs::path& path) {
  const std::error_code error = Step("remove");
  return error ? error : SystemFiles().Remove(path);
}

}  // namespace zentab::test

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "platform/file_layer.h"

namespace zentab::bench {

namespace fs = std::filesystem;

// The system's files without the flush to the device.
class UnflushedFile final : public platform::OutputFile {
 public:
  explicit UnflushedFile(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
  std::error_code Write(std::string_view bytes) override { return file_->Write(bytes); }
  std::error_code Flush() override { return {}; }
  std::error_code Stamp(platform::FileStamp& stamp) override { return file_->Stamp(stamp); }
  std::error_code Close() override { return file_->Close(); }

 private:
  std::unique_ptr<OutputFile> file_;
};

class UnflushedFiles final : public platform::FileLayer {
 public:
  std::error_code Open(const fs::path& path, std::unique_ptr<platform::InputFile>& file) override {
    return platform::SystemFiles().Open(path, file);
  }
  std::error_code StampOf(const fs::path& path,
                          std::optional<platform::FileStamp>& stamp) override {
    return platform::SystemFiles().StampOf(path, stamp);
  }
  std::error_code Create(const fs::path& path, const fs::path& like,
                         std::unique_ptr<platform::OutputFile>& file) override {
    const std::error_code error = platform::SystemFiles().Create(path, like, file);
    if (!error) file = std::make_unique<UnflushedFile>(std::move(file));
    return error;
  }
  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override {
    const std::error_code error = platform::SystemFiles().OpenForAppending(path, file);
    if (!error) file = std::make_unique<UnflushedFile>(std::move(file));
    return error;
  }
  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    std::error_code error;
    fs::rename(from, to, error);
    return error;
  }
  std::error_code Remove(const fs::path& path) override {
    return platform::SystemFiles().Remove(path);
  }
  std::error_code TryLock(const fs::path& path,
                          std::unique_ptr<platform::FileLock>& lock) override {
    return platform::SystemFiles().TryLock(path, lock);
  }
};

}  // namespace zentab::bench

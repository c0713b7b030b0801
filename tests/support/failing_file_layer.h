#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

#include "platform/file_layer.h"

namespace zentab::test {

/// The system's files, but one step fails, or the device is full after so many bytes. The steps
/// count from 0 over the layer and all its files.
class FailingFileLayer final : public platform::FileLayer {
  using Path = std::filesystem::path;
  using FilePointer = std::unique_ptr<platform::OutputFile>;

 public:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

  std::size_t failingStep = kNever;
  std::size_t bytesThatFit = kNever;
  bool losesBytesSilently = false;  // what does not fit is reported as written
  std::string failedStep;           // the name of the step that failed

  std::error_code Create(const Path& path, const Path& like, FilePointer& file) override {
    return Open("create", file, [&] { return platform::SystemFiles().Create(path, like, file); });
  }
  std::error_code OpenForAppending(const Path& path, FilePointer& file) override {
    return Open("open", file, [&] { return platform::SystemFiles().OpenForAppending(path, file); });
  }
  std::error_code MoveOver(const Path& from, const Path& to) override {
    return Step("move", [&] { return platform::SystemFiles().MoveOver(from, to); });
  }
  std::error_code Remove(const Path& path) override {
    return Step("remove", [&] { return platform::SystemFiles().Remove(path); });
  }
  std::error_code TryLock(const Path& path, std::unique_ptr<platform::FileLock>& lock) override {
    return Step("lock", [&] { return platform::SystemFiles().TryLock(path, lock); });
  }

 private:
  class File final : public platform::OutputFile {
   public:
    File(FailingFileLayer& layer, FilePointer file) : layer_(layer), file_(std::move(file)) {}
    std::error_code Write(std::string_view bytes) override {
      return layer_.Step("write", [&]() -> std::error_code {
        const std::size_t fitting = std::min(bytes.size(), layer_.bytesThatFit);
        if (layer_.bytesThatFit != kNever) layer_.bytesThatFit -= fitting;
        if (const auto error = file_->Write(bytes.substr(0, fitting))) return error;
        if (fitting == bytes.size() || layer_.losesBytesSilently) return {};
        return std::make_error_code(std::errc::no_space_on_device);
      });
    }
    std::error_code Flush() override {
      return layer_.Step("flush", [&] { return file_->Flush(); });
    }
    std::error_code Stamp(platform::FileStamp& stamp) override {
      return layer_.Step("stamp", [&] { return file_->Stamp(stamp); });
    }
    std::error_code Close() override {
      return layer_.Step("close", [&] { return file_->Close(); });
    }

   private:
    FailingFileLayer& layer_;
    FilePointer file_;
  };

  template <class Work>
  std::error_code Step(const char* name, Work work) {
    if (steps_++ != failingStep) return work();
    failedStep = name;
    return std::make_error_code(std::errc::io_error);
  }
  template <class Work>
  std::error_code Open(const char* name, FilePointer& file, Work work) {
    const std::error_code error = Step(name, work);
    if (!error) file = std::make_unique<File>(*this, std::move(file));
    return error;
  }

  std::size_t steps_ = 0;
};

}  // namespace zentab::test

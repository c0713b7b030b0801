#pragma once

#include <atomic>
#include <memory>

#include "platform/file_layer.h"

namespace zentab::app {

/// The files of a job that only reads: from the moment it is broken off every call fails with
/// FileError::GivenUp. It writes nothing at any time.
class QuietReading final : public platform::FileLayer {
  using Path = std::filesystem::path;

 public:
  QuietReading(platform::FileLayer& files, std::shared_ptr<const std::atomic<bool>> brokenOff)
      : files_(files), brokenOff_(std::move(brokenOff)) {}

  std::error_code Open(const Path& path, std::unique_ptr<platform::InputFile>& file) override;
  std::error_code StampOf(const Path& path, std::optional<platform::FileStamp>& stamp) override;
  std::error_code Ask(const std::function<std::error_code()>& call) override;
  std::error_code Create(const Path& path, const Path& like,
                         std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code OpenForAppending(const Path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code MoveOver(const Path& from, const Path& to) override;
  std::error_code Remove(const Path& path) override;
  std::error_code TryLock(const Path& path, std::unique_ptr<platform::FileLock>& lock) override;

 private:
  platform::FileLayer& files_;
  std::shared_ptr<const std::atomic<bool>> brokenOff_;
};

}  // namespace zentab::app

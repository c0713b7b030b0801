#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

#include "platform/file_stamp.h"

namespace zentab::platform {

/// A file that is being written. Every step reports what the system said of it; a file whose
/// Close was not reached is closed by the destructor, whose failure nobody learns.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Writes all the bytes or fails; after a failure some of them may have been written.
  [[nodiscard]] virtual std::error_code Write(std::string_view bytes) = 0;
  /// Forces what was written onto the storage device.
  [[nodiscard]] virtual std::error_code Flush() = 0;
  /// The file's size and the rest of its stamp as the system sees them.
  [[nodiscard]] virtual std::error_code Stamp(FileStamp& stamp) = 0;
  [[nodiscard]] virtual std::error_code Close() = 0;
};

/// Keeps others from changing a file, until it is destroyed or its process ends, in whatever way.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/// The steps by which files are changed, as one replaceable layer under everything that writes.
class FileLayer {
 public:
  virtual ~FileLayer() = default;

  /// Creates a file that must not exist, with the access rights of `like` when that exists.
  [[nodiscard]] virtual std::error_code Create(const std::filesystem::path& path,
                                               const std::filesystem::path& like,
                                               std::unique_ptr<OutputFile>& file) = 0;
  /// Opens a file for adding to its end; creates it when it is missing.
  [[nodiscard]] virtual std::error_code OpenForAppending(const std::filesystem::path& path,
                                                         std::unique_ptr<OutputFile>& file) = 0;
  /// Gives `from` the name `to`, taking the place of a file of that name in one step, and makes
  /// the change lasting.
  [[nodiscard]] virtual std::error_code MoveOver(const std::filesystem::path& from,
                                                 const std::filesystem::path& to) = 0;
  /// Removes a file; a missing one is no error.
  [[nodiscard]] virtual std::error_code Remove(const std::filesystem::path& path) = 0;
  /// Locks a file, there or not, towards all who lock it too; reading stays free. Fails with
  /// std::errc::device_or_resource_busy while someone else holds the lock. A file `path`.lock
  /// stands beside it meanwhile; one that a crash left behind is nobody's lock. Where the file
  /// system knows no locks there is nothing to hold, and the lock is given.
  [[nodiscard]] virtual std::error_code TryLock(const std::filesystem::path& path,
                                                std::unique_ptr<FileLock>& lock) = 0;
  /// Called again and again during work that may last: a window stays alive by it.
  virtual void KeepAlive() {}
};

/// The operating system's files.
[[nodiscard]] FileLayer& SystemFiles();

/// Whether the file exists and its owner marked it read-only (also towards a user who may write
/// everything), or this process may not write it.
[[nodiscard]] bool IsReadOnly(const std::filesystem::path& path);

}  // namespace zentab::platform

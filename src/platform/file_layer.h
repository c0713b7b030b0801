#pragma once

#include <chrono>
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

  /// Creates a file that must not exist. Where `like` exists, the file gets its group, mode, access
  /// list and user attributes (on Windows an access list that is not the folder's) and, where this
  /// process may give files away, its owner. Fails with FileError::GroupNotKept, OwnerNotKept or
  /// AccessListNotKept where someone would lose by that what he may do with `like`.
  [[nodiscard]] virtual std::error_code Create(const std::filesystem::path& path,
                                               const std::filesystem::path& like,
                                               std::unique_ptr<OutputFile>& file) = 0;
  /// Opens a file for adding to its end; creates it when it is missing. What is no regular file is
  /// neither waited for nor written: FileError::NoRegularFile.
  [[nodiscard]] virtual std::error_code OpenForAppending(const std::filesystem::path& path,
                                                         std::unique_ptr<OutputFile>& file) = 0;
  /// Gives `from` the name `to`, taking the place of a file of that name in one step, and makes
  /// the change lasting. On Windows it fails with FileError::OpenElsewhere while someone has opened
  /// that file in a way that keeps it in its place.
  [[nodiscard]] virtual std::error_code MoveOver(const std::filesystem::path& from,
                                                 const std::filesystem::path& to) = 0;
  /// Removes a file; a missing one is no error.
  [[nodiscard]] virtual std::error_code Remove(const std::filesystem::path& path) = 0;
  /// Locks a file, there or not, towards all who lock it too; reading stays free. Fails with
  /// FileError::LockedByOther while someone else holds the lock. A file `path`.lock stands beside
  /// it meanwhile, open to everyone who can reach the folder; one that a crash left behind is
  /// nobody's lock. Where the file system knows no locks there is nothing to hold, and the lock is
  /// given.
  [[nodiscard]] virtual std::error_code TryLock(const std::filesystem::path& path,
                                                std::unique_ptr<FileLock>& lock) = 0;
  /// Called again and again during work that may last: a window stays alive by it.
  virtual void KeepAlive() {}
  /// Asked again and again, at most 50 ms apart, while someone else keeps a file from being
  /// changed, who has been waited for for so long: whether to go on. When not, the change fails
  /// with what kept it.
  [[nodiscard]] virtual bool GoOnWaiting(std::chrono::steady_clock::duration waited) {
    constexpr std::chrono::seconds kLongestWait(5);
    return waited < kLongestWait;
  }
};

/// The operating system's files.
[[nodiscard]] FileLayer& SystemFiles();

/// Whether the file exists and its owner marked it read-only (also towards a user who may write
/// everything), or this process may not write it.
[[nodiscard]] bool IsReadOnly(const std::filesystem::path& path);

/// Whether the file has more than one name, by hard links.
[[nodiscard]] bool HasOtherNames(const std::filesystem::path& path);

}  // namespace zentab::platform

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/file_stamp.h"

namespace zentab::platform {

/// A file that is being read. It stays the same file while it is open, whoever replaces it.
class InputFile {
 public:
  virtual ~InputFile() = default;

  /// Reads `size` bytes at `offset`, from 0; `count` of them, fewer only where the file ends.
  [[nodiscard]] virtual std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                                               std::size_t& count) = 0;
  /// The file's size and the rest of its stamp as the system sees them.
  [[nodiscard]] virtual std::error_code Stamp(FileStamp& stamp) = 0;
};

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

/// The steps by which files are read and changed, as one replaceable layer under everything that
/// touches one.
class FileLayer {
 public:
  virtual ~FileLayer() = default;

  /// Opens a regular file for reading; others may write, replace and remove it meanwhile. Fails
  /// with std::errc::no_such_file_or_directory when there is none, on Windows with
  /// FileError::OpenElsewhere when someone has kept everybody out for a second.
  [[nodiscard]] virtual std::error_code Open(const std::filesystem::path& path,
                                             std::unique_ptr<InputFile>& file) = 0;
  /// The stamp of a regular file, behind any symbolic links; nothing when there is none. Fails when
  /// the system does not tell.
  [[nodiscard]] virtual std::error_code StampOf(const std::filesystem::path& path,
                                                std::optional<FileStamp>& stamp) = 0;

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
  /// Makes a call that asks the file system for anything else, and says what it says. The call owns
  /// what it touches: a layer that no longer waits for it leaves it to itself.
  [[nodiscard]] virtual std::error_code Ask(const std::function<std::error_code()>& call) {
    return call();
  }
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

/// What `ask` gives, asked for in a call of its own; nothing when the layer does not wait for it.
template <class Ask>
[[nodiscard]] auto AskFor(FileLayer& files, Ask ask) -> std::optional<decltype(ask())> {
  const auto answer = std::make_shared<std::optional<decltype(ask())>>();
  const std::error_code error = files.Ask([answer, ask = std::move(ask)] {
    *answer = ask();
    return std::error_code();
  });
  return error ? std::nullopt : std::move(*answer);
}

/// Whether the file exists and its owner marked it read-only (also towards a user who may write
/// everything), or this process may not write it.
[[nodiscard]] bool IsReadOnly(const std::filesystem::path& path);

/// Whether the file has more than one name, by hard links.
[[nodiscard]] bool HasOtherNames(const std::filesystem::path& path);

}  // namespace zentab::platform

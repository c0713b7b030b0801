#pragma once

#include <filesystem>
#include <functional>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// Writes the content of a file that is being replaced.
using ContentWriter = std::function<std::error_code(OutputFile&)>;

/// Decides what becomes of a leftover `path`.new while there is no file `path`, also after waiting
/// for it: whatever it leaves under that name is removed.
using LeftoverKeeper = std::function<std::error_code(const std::filesystem::path& leftover)>;

/// What is asked of a replacement beyond the content.
struct Replacement {
  FileStamp* written = nullptr;  // gets the stamp of the new content
  std::filesystem::path like;    // gives the file its access, in place of its own
  LeftoverKeeper keepLeftover;   // empty: leftovers are removed
};

/// Gives the file `path` a new content: a leftover `path`.new is removed, the content is written
/// there, flushed to the device and its size checked, and only then does it take the old file's
/// place in one step. Meanwhile the file is locked towards others who replace it, so that what
/// `write` reads of the old content is what it is written over; it waits for the lock as long as
/// `files` goes on waiting, and fails with FileError::LockedByOther then. After any error the old
/// file is untouched and no ".new" file remains (when even removing it fails, or the process ends
/// in between, the next replacement does). A symbolic link stays one: the file it points to is
/// replaced. A read-only file, one that is no regular file, or one of several names
/// (FileError::HardLinked) is refused. The file keeps
/// who may do what with it, as of FileLayer::Create; where `how.like` is given, it gets that one's
/// access, whatever it had.
[[nodiscard]] std::error_code ReplaceFile(FileLayer& files, const std::filesystem::path& path,
                                          const ContentWriter& write, const Replacement& how = {});

/// Gives a leftover `path`.new the name `path`. Fails with std::errc::file_exists when there is a
/// file of that name.
[[nodiscard]] std::error_code TakeLeftover(FileLayer& files, const std::filesystem::path& path);

/// Waits for a file to be there, which another program may just be replacing, for up to two
/// seconds.
[[nodiscard]] std::error_code WaitForFile(FileLayer& files, const std::filesystem::path& path,
                                          bool& isThere);

/// The file that a path means, behind any symbolic links, there or not.
[[nodiscard]] std::filesystem::path LinkTarget(const std::filesystem::path& path);

}  // namespace zentab::platform

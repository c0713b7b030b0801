#pragma once

#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// Locks by a file of that name, made for it when it is missing, which is removed with the lock.
/// Everyone who can reach its folder can ask for the lock, whatever his file creation mask. Fails
/// with FileError::LockedByOther while someone else has it. A file that this process may not open,
/// or not well enough to lock it, is removed when nobody has touched it for a minute and this
/// system knows of no lock on it; until then it counts as someone else's.
[[nodiscard]] std::error_code TryLockFile(const std::filesystem::path& name,
                                          std::unique_ptr<FileLock>& lock);

}  // namespace zentab::platform

#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace zentab::platform {

/// Gives a new, empty file of this process the group, mode, access list and user attributes of
/// another one, and its owner where this process may give files away. Fails with
/// FileError::GroupNotKept, OwnerNotKept or AccessListNotKept where someone would lose by it what
/// he may do with the other file.
[[nodiscard]] std::error_code CopyAccess(const std::filesystem::path& model,
                                         const struct stat& status, int descriptor);

/// Lets everyone who can reach a file of this process read and write it.
[[nodiscard]] std::error_code GiveToEveryone(int descriptor);

}  // namespace zentab::platform

#pragma once

#include <system_error>

namespace zentab::platform {

/// Why a file is not read or written, where the system's own errors would not say it.
enum class FileError {
  GroupNotKept = 1,   ///< its group would lose it, to which this process cannot give it again
  OwnerNotKept,       ///< its owner would lose it, to whom this process cannot give it again
  AccessListNotKept,  ///< whom its access list names would lose it
  HardLinked,         ///< it has other names, which would go on showing the former content
  LockedByOther,      ///< someone else is changing it; that may pass
  OpenElsewhere,      ///< someone else has opened it and lets nobody replace it; that may pass
  NoRegularFile,      ///< under its name stands a pipe, a device or the like
  LineTooLong,        ///< a line is longer than any text that is meant to be read
  GivenUp,            ///< the user no longer waits for the file
};

/// Their category, with a short English message of each. As conditions the first three are
/// std::errc::permission_denied, then too_many_links, twice device_or_resource_busy, and
/// operation_not_supported; the last two are conditions of their own.
[[nodiscard]] const std::error_category& FileErrors();

// The name by which the standard library finds it.
[[nodiscard]] std::error_code make_error_code(FileError error);  // NOLINT

}  // namespace zentab::platform

template <>
struct std::is_error_code_enum<zentab::platform::FileError> : std::true_type {};

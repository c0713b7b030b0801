#pragma once

#include <system_error>

namespace zentab::platform {

/// What the system has no word for: why a file is not read or written.
enum class FileError {
  LineTooLong = 1,    ///< a line is longer than any text that is meant to be read
  GivenUp,            ///< the user no longer waits for the file
  GroupNotKept,       ///< its group would lose it, to which this process cannot give it again
  OwnerNotKept,       ///< its owner would lose it, to whom this process cannot give it again
  AccessListNotKept,  ///< whom its access list names would lose it
  HardLinked,         ///< it has other names, which would go on showing the former content
  LockedByOther,      ///< someone else is changing it; that may pass
  OpenElsewhere,      ///< someone else has opened it and lets nobody replace it; that may pass
  NoRegularFile,      ///< under its name stands a pipe, a device or the like
};

/// Their category, with a short English message of each. As conditions the three of access that is
/// not kept are std::errc::permission_denied, HardLinked is too_many_links, LockedByOther and
/// OpenElsewhere are device_or_resource_busy, and NoRegularFile is operation_not_supported.
[[nodiscard]] const std::error_category& FileErrors();

[[nodiscard]] inline std::error_code make_error_code(FileError error) {
  return {static_cast<int>(error), FileErrors()};
}

}  // namespace zentab::platform

template <>
struct std::is_error_code_enum<zentab::platform::FileError> : std::true_type {};

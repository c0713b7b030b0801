#pragma once

#include <system_error>

namespace zentab::platform {

/// What the system has no word for.
enum class FileError {
  LineTooLong = 1,  // a line is longer than any text that is meant to be read
  GivenUp,          // the user no longer waits for the file
};

[[nodiscard]] const std::error_category& FileErrors();

[[nodiscard]] inline std::error_code make_error_code(FileError error) {
  return {static_cast<int>(error), FileErrors()};
}

}  // namespace zentab::platform

template <>
struct std::is_error_code_enum<zentab::platform::FileError> : std::true_type {};

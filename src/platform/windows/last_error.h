#pragma once

#include <windows.h>

#include <system_error>

namespace zentab::platform {

/// Why the last call of the system has failed; asked for before anything else is called.
[[nodiscard]] inline std::error_code LastError() {
  return {static_cast<int>(GetLastError()), std::system_category()};
}

}  // namespace zentab::platform

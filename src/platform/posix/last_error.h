#pragma once

#include <cerrno>
#include <system_error>

namespace zentab::platform {

/// Why the last call of the system has failed; asked for before anything else is called.
[[nodiscard]] inline std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace zentab::platform

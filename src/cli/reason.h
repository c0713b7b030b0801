#pragma once

#include <string>
#include <system_error>

namespace zentab::cli {

/// Why a file could not be written, in words: what the system says, or what happened where the
/// system's words would not tell.
[[nodiscard]] std::string Reason(std::error_code error);

}  // namespace zentab::cli

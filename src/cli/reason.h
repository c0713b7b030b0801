#pragma once

#include <string>
#include <system_error>

namespace zentab::cli {

/// Why a file could not be written, in English words.
[[nodiscard]] std::string Reason(std::error_code error);

}  // namespace zentab::cli

#pragma once

#include <string>
#include <string_view>

namespace zentab::platform {

/// A UTF-8 text with every letter of every alphabet in lower case, character by character.
/// Bytes that are no UTF-8 stay as they are.
[[nodiscard]] std::string LowerCase(std::string_view utf8);

}  // namespace zentab::platform

#pragma once

#include <string_view>

namespace zentab::platform {

/// Whether a text holds nothing beyond ASCII: then its characters are its bytes in every encoding
/// that is read here.
[[nodiscard]] bool IsAscii(std::string_view bytes);

/// A letter of ASCII in lower case; any other byte as it is.
[[nodiscard]] constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace zentab::platform

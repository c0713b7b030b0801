#pragma once

#include <string>
#include <string_view>

namespace zentab::texts {

/// Whether it is one of 0 to 9, whatever the locale says.
[[nodiscard]] constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The characters of a UTF-8 text, one number each; bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::u32string ToCharacters(std::string_view utf8);

/// UTF-8 of a row of characters; a number that is no character becomes U+FFFD.
[[nodiscard]] std::string FromCharacters(std::u32string_view characters);

/// The text for a terminal: control characters, tabs and line feeds aside, as \x1B, those that end
/// a line or turn the direction of writing as \u202E, and a byte that is no UTF-8 as \xE4.
[[nodiscard]] std::string Visible(std::string_view utf8);

}  // namespace zentab::texts

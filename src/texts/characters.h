#pragma once

#include <string>
#include <string_view>

namespace zentab::texts {

/// The characters of a UTF-8 text, one number each; bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::u32string ToCharacters(std::string_view utf8);

/// UTF-8 of a row of characters; a number that is no character becomes U+FFFD.
[[nodiscard]] std::string FromCharacters(std::u32string_view characters);

}  // namespace zentab::texts

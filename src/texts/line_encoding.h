#pragma once

#include <string>
#include <string_view>

namespace zentab::texts {

/// The UTF-8 text of one line of a text file: a line that is valid UTF-8 is UTF-8, any other is in
/// the system's single-byte code page.
[[nodiscard]] std::string DecodeLine(std::string_view bytes);

/// The bytes that stand for a text in a file, so that DecodeLine gives the text back: in the
/// system's single-byte code page when every character has a place there and the bytes do not
/// happen to be UTF-8, else in UTF-8.
[[nodiscard]] std::string EncodeLine(std::string_view utf8);

/// As DecodeLine(line), but of a part of it only: what the whole line is decides how the part is
/// read. `part` lies inside `line`. Parts of plain ASCII cost no look at the rest.
[[nodiscard]] std::string DecodePart(std::string_view line, std::string_view part);

}  // namespace zentab::texts

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zentab::platform {

/// UTF-8 of a text in the system's single-byte code page: the ANSI code page on Windows,
/// Windows-1252 elsewhere. Every byte has a character; those that Windows-1252 leaves open
/// (81, 8D, 8F, 90, 9D) become the control character of the same number.
[[nodiscard]] std::string FromAnsi(std::string_view bytes);

/// The same way back; nothing when a character has no place in the code page or the text is no
/// valid UTF-8.
[[nodiscard]] std::optional<std::string> ToAnsi(std::string_view utf8);

}  // namespace zentab::platform

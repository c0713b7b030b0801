#pragma once

#include <optional>
#include <string>

namespace zentab::interchange {

/// How a text file of another program has its characters. Utf16 is in the order of its byte-order
/// mark, little-endian without one; SingleByte is Windows-1252 (on Windows the system's code page).
enum class Encoding { Utf8, Utf16, SingleByte };

/// UTF-16 where a mark says so, UTF-8 where the bytes are valid, else single bytes.
[[nodiscard]] Encoding GuessEncoding(const std::string& bytes);

/// UTF-8 of a text, without a byte-order mark; what is no character becomes U+FFFD.
[[nodiscard]] std::string Decoded(std::string bytes, Encoding encoding);

/// The number, from 1, of the first line with a control character that no text has; nothing where
/// there is none.
[[nodiscard]] std::optional<std::size_t> LineOfNoText(const std::string& text);

}  // namespace zentab::interchange

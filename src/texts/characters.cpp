#include "texts/characters.h"

#include <utf8.h>

#include <iterator>

namespace zentab::texts {

namespace {

bool Steers(char32_t c) {
  if (c < 0x80) return (c < 0x20 && c != U'\t' && c != U'\n') || c == 0x7F;
  return c < 0xA0 || (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

void AppendNumber(std::string& text, char32_t c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += c <= 0xFF ? "\\x" : "\\u";
  for (int shift = c <= 0xFF ? 4 : 12; shift >= 0; shift -= 4) {
    text += kDigits[(c >> static_cast<unsigned>(shift)) & 0xFu];
  }
}

}  // namespace

std::u32string ToCharacters(std::string_view utf8) {
  std::string valid;
  valid.reserve(utf8.size());
  utf8::replace_invalid(utf8.begin(), utf8.end(), std::back_inserter(valid));
  std::u32string characters;
  characters.reserve(valid.size());
  for (auto at = valid.cbegin(); at != valid.cend();) {
    characters.push_back(static_cast<char32_t>(utf8::unchecked::next(at)));
  }
  return characters;
}

std::string FromCharacters(std::u32string_view characters) {
  std::string utf8;
  for (const char32_t character : characters) {
    const bool valid = character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    utf8::unchecked::append(valid ? static_cast<utf8::uint32_t>(character) : 0xFFFD,
                            std::back_inserter(utf8));
  }
  return utf8;
}

std::string Visible(std::string_view utf8) {
  std::string text;
  for (auto at = utf8.begin(); at != utf8.end();) {
    const auto validEnd = utf8::find_invalid(at, utf8.end());
    while (at != validEnd) {
      const auto begin = at;
      const char32_t character = utf8::unchecked::next(at);
      if (Steers(character)) {
        AppendNumber(text, character);
      } else {
        text.append(begin, at);
      }
    }
    if (at != utf8.end()) AppendNumber(text, static_cast<unsigned char>(*at++));
  }
  return text;
}

}  // namespace zentab::texts

#include "texts/characters.h"

#include <utf8.h>

#include <iterator>

namespace zentab::texts {

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

}  // namespace zentab::texts

#include "timetest/section_lines.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/character_case.h"
#include "texts/characters.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::timetest {
namespace {

// The place of a text from `from` on, counted from 1; 0 when there is none.
std::size_t PositionOf(std::u32string_view text, std::u32string_view wanted, std::size_t from) {
  if (text.empty() || from > text.size()) return 0;
  const std::size_t found = text.find(wanted, from - 1);
  return found == std::u32string_view::npos ? 0 : found + 1;
}

std::u32string Folded(std::string_view text) {
  return texts::ToCharacters(platform::LowerCase(text));
}

// Looks for the marker's first letters only: beyond ASCII no letter has them as its lower case.
bool MayHoldEndMarker(std::string_view text) {
  constexpr std::string_view kBeginning = "get the whole";
  const auto isSame = [](char a, char lower) {
    return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == lower;
  };
  return text.size() >= kEndMarker.size() &&
         std::search(text.begin(), text.end(), kBeginning.begin(), kBeginning.end(), isSame) !=
             text.end();
}

std::string_view WithoutLastCharacter(std::string_view utf8) {
  while (!utf8.empty() && (static_cast<unsigned char>(utf8.back()) & 0xC0u) == 0x80u) {
    utf8.remove_suffix(1);
  }
  utf8.remove_suffix(std::min<std::size_t>(utf8.size(), 1));
  return utf8;
}

}  // namespace

std::error_code ReadSection(platform::FileLayer& files, const std::filesystem::path& file,
                            std::string_view heading, const SectionLineTaker& take) {
  bool headingFound = heading.empty();
  std::string decoded;
  return platform::ReadLines(files, file, [&](const platform::RawLine& raw) {
    SectionLine line = {raw.text, headingFound, raw.text.size() + raw.ending.size()};
    if (!platform::IsAscii(line.text)) {
      decoded = texts::DecodeLine(line.text);
      line.text = decoded;
    }
    if (!headingFound) headingFound = texts::TrimBlanks(line.text).starts_with(heading);
    return take(line);
  });
}

std::string_view EntryValue(std::string_view line, std::string& buffer) {
  const std::size_t tab = line.find(kSeparator.front());
  const std::string_view value = tab == std::string_view::npos ? line : line.substr(tab + 1);
  if (!MayHoldEndMarker(value)) return WithoutLastCharacter(value);
  buffer = ValueText(line, kSeparator, kEndMarker);
  return buffer;
}

std::string ValueText(std::string_view line, std::string_view separator,
                      std::string_view endMarker) {
  const std::u32string characters = texts::ToCharacters(line);
  const std::u32string folded = Folded(line);
  const std::size_t begin = PositionOf(folded, Folded(separator), 1);
  std::size_t end = PositionOf(folded, Folded(endMarker), begin + 1);
  if (end == 0) end = characters.size();
  if (end <= begin) return {};
  return texts::FromCharacters(std::u32string_view(characters).substr(begin, end - begin - 1));
}

}  // namespace zentab::timetest

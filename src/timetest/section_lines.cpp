#include "timetest/section_lines.h"

#include <algorithm>

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

bool IsAscii(std::string_view text) {
  unsigned bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

bool MayHoldEndMarker(std::string_view text) {
  return text.size() >= kEndMarker.size() && text.find_first_of("gG") != std::string_view::npos;
}

}  // namespace

SectionLines::SectionLines(const std::filesystem::path& file, std::string_view heading)
    : reader_(file) {
  if (heading.empty()) return;
  std::string_view line;
  while (Next(line) && !texts::TrimBlanks(line).starts_with(heading)) {
  }
}

bool SectionLines::Next(std::string_view& line) {
  platform::RawLine raw;
  if (!reader_.Next(raw)) return false;
  bytesRead_ += raw.text.size() + raw.ending.size();
  line = raw.text;
  if (!IsAscii(line)) {
    decoded_ = texts::DecodeLine(line);
    line = decoded_;
  }
  return true;
}

std::string_view EntryValue(std::string_view line, std::string& buffer) {
  const std::size_t tab = line.find(kSeparator);
  std::string_view value = tab == std::string_view::npos ? line : line.substr(tab + 1);
  if (!IsAscii(line) || MayHoldEndMarker(value)) {
    buffer = ValueText(line, kSeparator, kEndMarker);
    return buffer;
  }
  value.remove_suffix(std::min<std::size_t>(value.size(), 1));
  return value;
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

#include "timetest/section_lines.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

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
  std::uint64_t bits = 0;
  std::size_t at = 0;
  for (; at + sizeof bits <= text.size(); at += sizeof bits) {
    std::uint64_t word;
    std::memcpy(&word, text.data() + at, sizeof word);
    bits |= word;
  }
  for (; at < text.size(); ++at) bits |= static_cast<unsigned char>(text[at]);
  return (bits & 0x8080808080808080u) == 0;
}

bool MayHoldEndMarker(std::string_view text) {
  return text.size() >= kEndMarker.size() && text.find_first_of("gG") != std::string_view::npos;
}

}  // namespace

SectionLines::SectionLines(const std::filesystem::path& file, std::string_view heading)
    : reader_(file) {
  if (heading.empty()) return;
  SectionLine line;
  while (Next(line) && !texts::TrimBlanks(line.text).starts_with(heading)) {
  }
}

bool SectionLines::Next(SectionLine& line) {
  platform::RawLine raw;
  if (!reader_.Next(raw)) return false;
  bytesRead_ += raw.text.size() + raw.ending.size();
  line = {raw.text, IsAscii(raw.text)};
  if (!line.isAscii) {
    decoded_ = texts::DecodeLine(raw.text);
    line.text = decoded_;
  }
  return true;
}

std::string_view EntryValue(const SectionLine& line, std::string& buffer) {
  const std::size_t tab = line.text.find(kSeparator.front());
  std::string_view value = tab == std::string_view::npos ? line.text : line.text.substr(tab + 1);
  if (!line.isAscii || MayHoldEndMarker(value)) {
    buffer = ValueText(line.text, kSeparator, kEndMarker);
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

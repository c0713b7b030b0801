#include "tables/entry_line.h"

#include <algorithm>

#include "platform/ascii.h"
#include "texts/characters.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::tables {
namespace {

using texts::SetDecimalSeparator;
using texts::TrimBlanks;

std::string FileNumber(std::string_view cell) {
  const std::string number = SetDecimalSeparator(cell, ".");
  return std::string(TrimBlanks(number));
}

// The first place of one character at or behind an ever growing position. It remembers what it
// found, so that a line full of brackets is not searched to its end again for every one.
class MarkFinder {
 public:
  MarkFinder(std::string_view text, char mark) : text_(text), mark_(mark) {}

  std::size_t From(std::size_t position) {
    if (!searched_ || (found_ != std::string_view::npos && found_ < position)) {
      found_ = text_.find(mark_, position);
      searched_ = true;
    }
    return found_;
  }

 private:
  std::string_view text_;
  char mark_;
  std::size_t found_ = 0;
  bool searched_ = false;
};

std::optional<bool> FlagAt(std::u32string_view flags, std::size_t at) {
  if (at >= flags.size() || (flags[at] != U'0' && flags[at] != U'1')) return std::nullopt;
  return flags[at] == U'1';
}

// Three characters, of at most four bytes each.
std::string_view SettingsIn(std::string_view rest) {
  const std::size_t bracket = rest.find(')');
  if (bracket != std::string_view::npos) rest.remove_prefix(bracket + 1);
  if (rest.ends_with('}')) rest.remove_suffix(1);
  return TrimBlanks(rest).substr(0, 12);
}

void ReadSettings(std::string_view rest, ParsedEntry& entry) {
  const std::u32string flags = texts::ToCharacters(SettingsIn(rest));
  entry.milliseconds = FlagAt(flags, 0);
  entry.absoluteValues = FlagAt(flags, 1);
  if (flags.size() > 2 && flags[2] == U'1') entry.instrument = Instrument::Current;
  if (flags.size() > 2 && flags[2] == U'2') entry.instrument = Instrument::Voltage;
}

}  // namespace

std::string FormatEntryLine(const CurveTableEntry& entry) {
  std::string line = "{\"" + entry.name + "\"\t";
  std::size_t row = 0;
  for (const CurvePoint& point : entry.points) {
    if (point.load.empty() || ++row > kMaxPoints) break;
    line += '(' + FileNumber(point.load) + ';' + FileNumber(point.time) + ')';
  }
  line += ' ';
  line += entry.milliseconds ? '1' : '0';
  line += entry.absoluteValues ? '1' : '0';
  line += entry.instrument == Instrument::Current   ? '1'
          : entry.instrument == Instrument::Voltage ? '2'
                                                    : '0';
  line += '}';
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

ParsedEntry ParseEntryLine(std::string_view line) {
  ParsedEntry entry;
  // Trimmed on the right once for all; the marks below are places in `text`.
  const std::string_view text = line.substr(0, line.find_last_not_of(' ') + 1);
  MarkFinder opening(text, '(');
  MarkFinder semicolon(text, ';');
  MarkFinder closing(text, ')');
  const auto skipBlanks = [text](std::size_t at) {
    return std::min(text.find_first_not_of(' ', at), text.size());
  };

  CurvePoint point;
  std::size_t bracket = opening.From(0);
  bool goesOn = bracket != std::string_view::npos && bracket > 0;
  std::size_t rest = skipBlanks(bracket == std::string_view::npos ? 0 : bracket + 1);
  while (rest < text.size() && goesOn) {
    const std::size_t s = semicolon.From(rest);
    const std::size_t c = closing.From(rest);
    ++entry.pointCount;
    if (entry.points.size() < kMaxPoints) {
      if (s != std::string_view::npos) point.load = FileNumber(text.substr(rest, s - rest));
      const std::size_t timeBegin = s == std::string_view::npos ? rest : s + 1;
      if (c != std::string_view::npos && c >= timeBegin) {
        point.time = FileNumber(TrimBlanks(text.substr(timeBegin, c - timeBegin)));
      }
      entry.points.push_back(point);
    }
    bracket = opening.From(rest);
    goesOn = bracket != std::string_view::npos && bracket > rest;
    if (bracket != std::string_view::npos) rest = skipBlanks(bracket + 1);
  }
  ReadSettings(text.substr(rest), entry);
  return entry;
}

Instrument InstrumentOf(std::string_view bytes) {
  const std::string_view text = bytes.substr(0, bytes.find_last_not_of(' ') + 1);
  const std::string_view settings = SettingsIn(text.substr(text.rfind('(') + 1));
  if (!platform::IsAscii(settings)) {
    return ParseEntryLine(texts::DecodeLine(bytes)).instrument.value_or(Instrument::None);
  }
  const char digit = settings.size() > 2 ? settings[2] : '0';
  return digit == '1' ? Instrument::Current : digit == '2' ? Instrument::Voltage : Instrument::None;
}

std::optional<std::string> ParseEntryName(std::string_view bytes) {
  // Two characters are two bytes unless the line is UTF-8 that begins with longer ones.
  std::size_t begin = 2;
  if (bytes.size() >= 2 && ((bytes[0] | bytes[1]) & 0x80) != 0) {
    const std::string text = texts::DecodeLine(bytes);
    begin = 0;
    for (int character = 0; character < 2 && begin < text.size(); ++character) {
      do {
        ++begin;
      } while (begin < text.size() && (text[begin] & 0xC0) == 0x80);
    }
    const std::size_t quote = text.find('"', begin);
    if (quote == std::string::npos) return std::nullopt;
    return text.substr(begin, quote - begin);
  }
  const std::size_t quote = bytes.find('"', begin);
  if (quote == std::string_view::npos) return std::nullopt;
  return texts::DecodePart(bytes, bytes.substr(begin, quote - begin));
}

}  // namespace zentab::tables

// A line of a table file: its encoding, its name, its points and settings.

#include <utf8.h>

#include <algorithm>

#include "fuzz/fuzzing.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::fuzz {
namespace {

void CheckEncoding(std::string_view bytes) {
  const std::string text = texts::DecodeLine(bytes);
  Require(utf8::is_valid(text.begin(), text.end()), "a decoded line is UTF-8");
  Require(texts::DecodeLine(texts::EncodeLine(text)) == text, "an encoded line is decoded again");
  const std::size_t third = bytes.size() / 3;
  std::string parts;
  for (const std::string_view part :
       {bytes.substr(0, third), bytes.substr(third, third), bytes.substr(2 * third)}) {
    parts += texts::DecodePart(bytes, part);
  }
  Require(parts == text, "the parts of a line are decoded as the whole");
}

// Without the characters that end a text in a table file, and a second decimal separator.
bool IsPlain(const std::string& number) {
  return number.find_first_of("(;)\r\n,") == std::string::npos;
}

bool IsPlain(const std::vector<tables::CurvePoint>& points) {
  return std::all_of(points.begin(), points.end(), [](const tables::CurvePoint& point) {
    return !point.load.empty() && IsPlain(point.load) && IsPlain(point.time);
  });
}

void CheckEntry(std::string_view bytes) {
  const std::optional<std::string> name = tables::ParseEntryName(bytes);
  const tables::ParsedEntry parsed = tables::ParseEntryLine(texts::DecodeLine(bytes));
  Require(parsed.points.size() == std::min(parsed.pointCount, tables::kMaxPoints),
          "the first 26 points are kept");
  const tables::CurveTableEntry entry = {
      name.value_or(""), parsed.points, parsed.milliseconds.value_or(false),
      parsed.absoluteValues.value_or(false), parsed.instrument.value_or(tables::Instrument::None)};
  const std::string line = tables::FormatEntryLine(entry);
  Require(line.find_first_of("\r\n") == std::string::npos, "an entry is one line");
  if (entry.name.find_first_of("(\r\n\"") != std::string::npos || !IsPlain(entry.points)) return;
  Require(tables::ParseEntryName(texts::EncodeLine(line)) == entry.name, "the name comes back");
  const tables::ParsedEntry again = tables::ParseEntryLine(line);
  Require(again.points == entry.points, "the points come back");
  if (entry.points.empty()) return;  // then the settings are looked for in the name
  Require(again.milliseconds == entry.milliseconds && again.absoluteValues == entry.absoluteValues,
          "the value modes come back");
  Require(again.instrument.value_or(tables::Instrument::None) == entry.instrument,
          "the instrument comes back");
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = zentab::fuzz::InputOf(data, size);
  zentab::fuzz::CheckEncoding(bytes);
  zentab::fuzz::CheckEntry(bytes);
  return 0;
}

#include "interchange/entry_meaning.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "tables/entry_line.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

bool IsSameCell(const std::string& cell, const std::string& other) {
  if (cell == other) return true;
  const std::optional<double> number = texts::WholeNumber(cell);
  return number && number == texts::WholeNumber(other);
}

bool IsSamePoint(const tables::CurvePoint& point, const tables::CurvePoint& other) {
  return IsSameCell(point.load, other.load) && IsSameCell(point.time, other.time);
}

tables::CurveTableEntry Entry(std::string_view line, tables::ParsedEntry parsed) {
  return {tables::ParseEntryName(line).value_or(std::string()), std::move(parsed.points),
          parsed.milliseconds.value_or(false), parsed.absoluteValues.value_or(false),
          parsed.instrument.value_or(tables::Instrument::None)};
}

}  // namespace

tables::CurveTableEntry EntryOf(std::string_view line) {
  return Entry(line, tables::ParseEntryLine(texts::DecodeLine(line)));
}

bool SayTheSame(const tables::CurveTableEntry& one, const tables::CurveTableEntry& other) {
  return one.name == other.name && one.milliseconds == other.milliseconds &&
         one.absoluteValues == other.absoluteValues && one.instrument == other.instrument &&
         std::equal(one.points.begin(), one.points.end(), other.points.begin(), other.points.end(),
                    IsSamePoint);
}

bool LinesSayTheSame(std::string_view line, std::string_view other) {
  if (line == other) return true;
  const std::string text = texts::DecodeLine(line);
  const std::string otherText = texts::DecodeLine(other);
  tables::ParsedEntry one = tables::ParseEntryLine(text);
  tables::ParsedEntry two = tables::ParseEntryLine(otherText);
  // Of an entry without points no settings are read; what its line has of them may still be meant.
  if (one.pointCount == 0) return text == otherText;
  return one.pointCount == two.pointCount &&
         SayTheSame(Entry(line, std::move(one)), Entry(other, std::move(two)));
}

std::string NumberCell(double number) {
  constexpr double kSmallest = 1e-4;
  constexpr double kLargest = 1e15;
  const double size = std::abs(number);
  if (number != 0.0 && (size < kSmallest || size >= kLargest)) {
    return texts::ShortText(number, 0.0, ".");
  }
  std::array<char, 32> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed)
          .ptr;
  return {buffer.data(), end};
}

}  // namespace zentab::interchange

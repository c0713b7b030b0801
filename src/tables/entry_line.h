#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables/curve_table_entry.h"

namespace zentab::tables {

// A line of a table file, without its line end, is
//   {"NAME"<TAB>(LOAD;TIME)(LOAD;TIME)... MAI}
// where M and A are 1 for milliseconds and absolute values, and I is the instrument's digit.

/// The line (UTF-8, without line end) for an entry whose points are the grid's rows as the user
/// sees them: points from the first empty load on, and those beyond kMaxPoints, are left out;
/// decimal separators become ".". The name is written as it is, quotes and brackets included;
/// only line breaks, which would end the line, become blanks (in the points as well).
[[nodiscard]] std::string FormatEntryLine(const CurveTableEntry& entry);

/// What a line says. A setting that it does not give leaves the present one as it is.
struct ParsedEntry {
  std::vector<CurvePoint> points;  // at most kMaxPoints; number texts with ".", not checked
  std::size_t pointCount = 0;      // of the line, however many
  std::optional<bool> milliseconds;
  std::optional<bool> absoluteValues;
  std::optional<Instrument> instrument;  // Current or Voltage

  friend bool operator==(const ParsedEntry&, const ParsedEntry&) = default;
};

/// Reads points and settings of a line (UTF-8). Only "(", ";", ")" and "}" guide it; braces,
/// quotes and the name are not checked. A point without its ";" or ")" keeps the load or time of
/// the point before it. Takes time in proportion to the line's length, whatever it holds.
[[nodiscard]] ParsedEntry ParseEntryLine(std::string_view line);

/// The instrument that a line (the file's bytes) gives, as ParseEntryLine reads it; None where it
/// gives none. Looks only behind the last bracket, as every line of a library is listed: where one
/// bracket stands right behind another, which ends the points early, it may see more.
[[nodiscard]] Instrument InstrumentOf(std::string_view bytes);

/// The name in a line (the file's bytes): what stands from the third character up to the next
/// quote. Nothing when there is no quote from there on. The first two characters are not checked.
[[nodiscard]] std::optional<std::string> ParseEntryName(std::string_view bytes);

}  // namespace zentab::tables

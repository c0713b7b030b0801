#pragma once

#include <string>
#include <string_view>

#include "tables/curve_table_entry.h"

namespace zentab::interchange {

/// How numbers and cells are written; neutral unless said otherwise.
struct CsvNotation {
  char separator = ',';
  char decimalSign = '.';
};

/// An entry as rows of cells, LF at the end of each: a heading "Load [multiple]" ("[A]", "[V]" of
/// voltage tables) and "NAME [s]" ("[ms]"), then a point a row.
[[nodiscard]] std::string CsvOf(const tables::CurveTableEntry& entry, const CsvNotation& notation);

/// A cell with a text that a spreadsheet might run as a formula begins with "'"; so does one that
/// begins with "'" itself. Line breaks, quotes and separators are quoted.
[[nodiscard]] std::string TextCell(std::string_view text, char separator);

/// The text of such a cell, once its quotes are off.
[[nodiscard]] std::string_view PlainText(std::string_view cell);

}  // namespace zentab::interchange

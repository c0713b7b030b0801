#pragma once

#include <string>
#include <string_view>

#include "editor/curve_grid.h"

namespace zentab::editor {

// Block text is how a rectangle of cells travels through the clipboard: the cells of a row with
// tabs between them, the rows with carriage returns between them.

/// A rectangle of cells, its edges included: rows 1..26, columns 1..2.
struct CellArea {
  int top;
  int left;
  int bottom;
  int right;

  [[nodiscard]] bool IsOneCell() const { return top == bottom && left == right; }
};

/// The cells of the area exactly as the grid shows them.
[[nodiscard]] std::string BlockText(const CurveGrid& grid, const CellArea& area);

/// The first row of cells in a text, without its line end.
[[nodiscard]] std::string_view FirstRow(std::string_view text);

/// The rows of cells behind the first one.
[[nodiscard]] std::string_view RowsBelowFirst(std::string_view text);

/// Whether a text is the content of one cell, with or without a line end behind it.
[[nodiscard]] bool IsOneValue(std::string_view text);

/// Whether a text holds more than one row of cells.
[[nodiscard]] bool HasSeveralRows(std::string_view text);

/// Pastes text as it comes from a spreadsheet: rows end with CR, LF or CR LF, and the end of the
/// last one begins no further row. It fills the area from its upper left cell on, or from an area
/// of one cell as far right and down as the grid goes; what lies beyond is dropped, and cells for
/// which the text has nothing stay. Then the grid is tidied. An empty text changes nothing.
/// The table does not count as modified by it.
void PasteText(WorkingTable& table, const CellArea& area, std::string_view text,
               std::string_view localeDecimalSeparator);

/// Empties the cells of the area and tidies the grid; the table counts as modified.
void ClearArea(WorkingTable& table, const CellArea& area, std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

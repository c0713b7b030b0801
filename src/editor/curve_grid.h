#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zentab::editor {

inline constexpr int kGridRows = 27;    // row 0 holds the headings
inline constexpr int kGridColumns = 3;  // column 0 holds the row numbers
inline constexpr int kFirstRow = 1;
inline constexpr int kLastRow = kGridRows - 1;
inline constexpr int kLoadColumn = 1;
inline constexpr int kTimeColumn = 2;

/// The grid of the edited table: number texts in the user's locale, the only working copy of its
/// points. Rows are neither sorted nor added; rows without a load and a time are empty.
class CurveGrid {
 public:
  /// Writes the row numbers and English headings; all points are empty.
  CurveGrid();

  /// A cell's text; `row` in 0..26, `column` in 0..2.
  [[nodiscard]] const std::string& Cell(int row, int column) const;

  /// Writes a cell of a point. False, and nothing written, outside rows 1..26, columns 1..2.
  bool SetCell(int row, int column, std::string_view text);

  /// Names the two columns of points.
  void SetHeadings(std::string_view load, std::string_view time);

  /// Empties both columns of all points.
  void ClearPoints();

  /// The current cell, on which the cell editor opens.
  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return column_; }
  /// Moves the current cell; a place outside the points changes nothing.
  void MoveTo(int row, int column);

 private:
  std::array<std::array<std::string, kGridColumns>, kGridRows> cells_;
  int row_ = kFirstRow;
  int column_ = kLoadColumn;
};

/// The edited table: its grid, and whether the grid holds edits that no file has.
struct WorkingTable {
  CurveGrid grid;
  bool tableModified = false;
};

}  // namespace zentab::editor

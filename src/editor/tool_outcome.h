#pragma once

#include "editor/curve_grid.h"

namespace zentab::editor {

/// What became of a tool on the points. After anything but Done table and modes are as before.
enum class ToolOutcome {
  Done,
  NothingToDo,  // the table is already what the tool would make of it
  NoRoom,       // a cell would be pushed off the last row
  NoNumber,     // none of the cells concerned holds a number as a whole
  NoPickup,     // the pickup value is no number above zero
  OutOfRange,   // a number would leave the range of a double
  NoTwoPoints,  // there are no two points to fill between
  NotAdjacent,  // other rows with texts lie between the two points
  SameLoad,     // the two points have one load
};

/// Rows of the grid, both ends included: 1..26.
struct RowSpan {
  int first = kFirstRow;
  int last = kLastRow;

  [[nodiscard]] int Count() const { return last - first + 1; }
};

}  // namespace zentab::editor

#pragma once

#include <string_view>

#include "editor/tool_outcome.h"

namespace zentab::editor {

// Tools that put the rows of a table into another order. They take rows as they are, whatever their
// cells hold, and drop none but those that are to be deleted. After Done the table counts as
// modified.

/// The last row, 1..26, with a text in any cell; 0 when all are empty.
[[nodiscard]] int LastUsedRow(const CurveGrid& grid);

/// Puts as many empty rows as the span has before its first row. NoRoom when as many rows at the
/// end of the grid are not empty.
[[nodiscard]] ToolOutcome InsertRows(WorkingTable& table, const RowSpan& rows);

/// Takes the rows away; those below move up.
[[nodiscard]] ToolOutcome DeleteRows(WorkingTable& table, const RowSpan& rows);

/// Lets the rows change places with the row above or below them. NothingToDo at the edge of the
/// grid.
[[nodiscard]] ToolOutcome MoveRowsUp(WorkingTable& table, const RowSpan& rows);
[[nodiscard]] ToolOutcome MoveRowsDown(WorkingTable& table, const RowSpan& rows);

/// Sorts the rows by rising load; rows of one load keep their order. Behind them come the rows
/// whose load is no number, then the empty ones.
[[nodiscard]] ToolOutcome SortByLoad(WorkingTable& table, const RowSpan& rows,
                                     std::string_view localeDecimalSeparator);

/// Turns the order of the rows round, up to the last one in use.
[[nodiscard]] ToolOutcome Reverse(WorkingTable& table, const RowSpan& rows);

}  // namespace zentab::editor

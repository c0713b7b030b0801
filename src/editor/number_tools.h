#pragma once

#include <string_view>

#include "editor/chart_axes.h"
#include "editor/clipboard_text.h"
#include "editor/tool_outcome.h"
#include "editor/value_modes.h"

namespace zentab::editor {

// Tools that calculate the numbers of a table. They change the cells that are numbers as a whole;
// any other text stays as it is. Results are written in the user's form, without the digits that
// only binary arithmetic has brought in. After Done the table counts as modified.

/// Multiplies the numbers of the area by a finite factor other than zero.
[[nodiscard]] ToolOutcome ScaleNumbers(WorkingTable& table, const CellArea& area, double factor,
                                       std::string_view localeDecimalSeparator);

/// Adds a finite amount to the numbers of the area.
[[nodiscard]] ToolOutcome ShiftNumbers(WorkingTable& table, const CellArea& area, double amount,
                                       std::string_view localeDecimalSeparator);

/// Rounds the numbers of the area to `decimals` (0 to 15) digits behind the point, halves to the
/// even digit as texts::RoundHalfEven has it.
[[nodiscard]] ToolOutcome RoundNumbers(WorkingTable& table, const CellArea& area, int decimals,
                                       std::string_view localeDecimalSeparator);

/// Turns all loads from multiples of the pickup value into amperes or volts or back, and the mode
/// with them. The pickup value's text has either decimal separator.
[[nodiscard]] ToolOutcome ConvertLoads(WorkingTable& table, ValueModes& modes,
                                       std::string_view localeDecimalSeparator);

/// Turns all times from s into ms or back, and the mode with them.
[[nodiscard]] ToolOutcome ConvertTimes(WorkingTable& table, ValueModes& modes,
                                       std::string_view localeDecimalSeparator);

/// The two points that a fill would go between: the first and the last one of several rows, of one
/// row its point and the next one below. Both 0 where there are no two.
[[nodiscard]] RowSpan PointsToFillBetween(const CurveGrid& grid, const RowSpan& rows,
                                          std::string_view localeDecimalSeparator);

/// Puts `count` (from 1) points between two points; see PointsToFillBetween. Their loads are
/// logarithmically spaced where both loads are positive, else evenly. Their times lie on the
/// straight line between the two in the chart, whose axes are logarithmic where `logarithmic` says
/// so and the points of the table allow it; see PossibleKinds. They are written with six or seven
/// significant digits. Empty rows between the two are used up, then the rows below move down.
[[nodiscard]] ToolOutcome FillBetween(WorkingTable& table, const RowSpan& rows, int count,
                                      AxisKinds logarithmic,
                                      std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

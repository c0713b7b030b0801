#pragma once

#include <string_view>

#include "editor/chart_axes.h"
#include "editor/curve_grid.h"
#include "editor/tool_outcome.h"

namespace zentab::editor {

// What a hand does to the points of a table in the chart. Numbers are written with the digits that
// the screen tells apart; after Done the table counts as modified.

/// A place in the chart, with what neighbouring pixels of the screen differ by there.
struct ScreenPlace {
  double load = 0.0;
  double time = 0.0;
  double loadStep = 0.0;
  double timeStep = 0.0;
};

/// Which of a point's numbers are moved.
struct MovedNumbers {
  bool load = true;
  bool time = true;
};

/// Moves the point of a row. A number that is not moved keeps its text.
[[nodiscard]] ToolOutcome MovePoint(WorkingTable& table, int row, const ScreenPlace& place,
                                    MovedNumbers moved, std::string_view localeDecimalSeparator);

/// Puts a point into a row of its own behind `row`, those below moving down. NoRoom when the last
/// row is in use.
[[nodiscard]] ToolOutcome AddPointBehind(WorkingTable& table, int row, const ScreenPlace& place,
                                         std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

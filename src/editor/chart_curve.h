#pragma once

#include <string_view>
#include <vector>

#include "editor/curve_grid.h"

namespace zentab::editor {

/// A point of the chart; both of its cells hold numbers.
struct ChartPoint {
  int row;
  double load;
  double time;

  friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

struct Range {
  double minimum = 0.0;
  double maximum = 0.0;

  friend bool operator==(const Range&, const Range&) = default;
};

/// Makes a range hold one more value; the first value of all is the whole range.
void Widen(Range& range, double value, bool first);

/// What the chart shows of a grid.
struct ChartCurve {
  std::vector<ChartPoint> points;  // in row order
  int rowCount = 1;                // the last row whose load or time is not empty, at least 1
  Range load;                      // over the points; zero without points
  Range time;

  /// A curve needs two rows. The commands that store or hand on a table need it as well.
  [[nodiscard]] bool IsShown() const { return rowCount >= 2; }

  friend bool operator==(const ChartCurve&, const ChartCurve&) = default;
};

[[nodiscard]] ChartCurve CurveOf(const CurveGrid& grid, std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

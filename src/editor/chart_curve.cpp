#include "editor/chart_curve.h"

#include <algorithm>
#include <optional>

#include "editor/grid_points.h"

namespace zentab::editor {

void Widen(Range& range, double value, bool first) {
  range.minimum = first ? value : std::min(range.minimum, value);
  range.maximum = first ? value : std::max(range.maximum, value);
}

ChartCurve CurveOf(const CurveGrid& grid, std::string_view localeDecimalSeparator) {
  ChartCurve curve;
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    const std::string& loadCell = grid.Cell(row, kLoadColumn);
    const std::string& timeCell = grid.Cell(row, kTimeColumn);
    if (!loadCell.empty() || !timeCell.empty()) curve.rowCount = row;
    const std::optional<double> load = CellNumber(loadCell, localeDecimalSeparator);
    const std::optional<double> time = CellNumber(timeCell, localeDecimalSeparator);
    if (!load || !time) continue;
    Widen(curve.load, *load, curve.points.empty());
    Widen(curve.time, *time, curve.points.empty());
    curve.points.push_back({row, *load, *time});
  }
  return curve;
}

}  // namespace zentab::editor

#include "app/grid_curve.h"

#include "app/session_texts.h"
#include "editor/chart_axes.h"
#include "editor/chart_curve.h"
#include "texts/number_text.h"

namespace zentab::app {

GridCurve CurveInGrid(const Session& session) {
  GridCurve result;
  result.table.milliseconds = session.modes.milliseconds;
  const editor::ChartCurve curve =
      editor::CurveOf(session.table.grid, session.localeDecimalSeparator);
  for (const editor::ChartPoint& point : curve.points) {
    result.table.points.push_back({point.load, point.time});
    result.rows.push_back(point.row);
  }
  return result;
}

std::optional<double> PickupOf(const Session& session) {
  return editor::PickupOf(ModesInFiles(session));
}

void PutIntoGrid(const std::vector<curves::Point>& points, Session& session) {
  editor::CurveGrid& grid = session.table.grid;
  grid.ClearPoints();
  int row = editor::kFirstRow;
  for (const curves::Point& point : points) {
    grid.SetCell(row, editor::kLoadColumn,
                 texts::NumberText(point.load, session.localeDecimalSeparator));
    grid.SetCell(row, editor::kTimeColumn,
                 texts::NumberText(point.time, session.localeDecimalSeparator));
    ++row;
  }
  session.table.tableModified = true;
}

std::vector<curves::Point> InGridModes(std::vector<curves::Point> seconds, const Session& session) {
  if (!session.modes.milliseconds) return seconds;
  for (curves::Point& point : seconds) point.time *= curves::kMillisecondsPerSecond;
  return seconds;
}

}  // namespace zentab::app

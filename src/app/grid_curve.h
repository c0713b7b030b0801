#pragma once

#include <optional>
#include <vector>

#include "app/session.h"
#include "curves/entry_points.h"

namespace zentab::app {

/// The grid's table as a curve, rows without two numbers left out.
struct GridCurve {
  curves::EntryPoints table;  // the points and the unit of their times
  std::vector<int> rows;      // of the grid, one for each point
};
[[nodiscard]] GridCurve CurveInGrid(const Session& session);

/// The pickup value, amperes or volts; nothing where its field holds no number above zero.
[[nodiscard]] std::optional<double> PickupOf(const Session& session);

/// Makes points (in the session's modes, at most 26) the grid's table, which counts as modified.
/// Numbers are written as everywhere in the grid.
void PutIntoGrid(const std::vector<curves::Point>& points, Session& session);

/// The points in s as the session's modes have them.
[[nodiscard]] std::vector<curves::Point> InGridModes(std::vector<curves::Point> seconds,
                                                     const Session& session);

}  // namespace zentab::app

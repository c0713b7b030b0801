#pragma once

#include <vector>

#include "timetest/measured_points.h"

namespace zentab::timetest {

/// The difference measure that a point has to exceed so that at most 26 points are chosen; less
/// than any measure when there are no more than that.
///
/// The level rises from 0 in rounds, counted by a = 1, 2 and so on, until at most 26 points lie
/// above it: by 0.0001 a^2 while more than 100 do, else by 0.00001 b (n - 26), where n is their
/// number and b counts the rounds of this second kind. After ten million rounds it goes straight to
/// the next measure.
[[nodiscard]] double SelectionLevel(const std::vector<MeasuredPoint>& points);

struct Selection {
  std::vector<MeasuredPoint> points;  // in their order, at most 26; the first and the last always
  bool byRank = false;                // the level rose above an end, and the ranks decided
};

/// The points above the selection level. Where that would leave out the first or the last point,
/// as a measure above theirs does when too many points have it, those two and the 24 largest
/// measures between them; of points with equal measures some that are spread over all of them.
[[nodiscard]] Selection SelectPoints(const std::vector<MeasuredPoint>& points);

}  // namespace zentab::timetest

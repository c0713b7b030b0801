#pragma once

#include <span>
#include <vector>

#include "curves/table_curve.h"

namespace zentab::curves {

/// Fewer points with what they leave out.
struct ChosenPoints {
  std::vector<Point> points;  // in the order of their loads
  double deviation = 0.0;     // the largest of the lines, as a ratio of the curve's time
};

/// The `count` (from 2) points of a curve, its ends among them, between which straight lines
/// deviate least from all of them, measured by the largest ratio to a time. Up to 1025 points by
/// the optimum, within a ten-thousandth; of more points one in each of 1024 stretches, near the
/// middle of its scatter, may be chosen, and the deviation is still that from all. Fewer come back
/// where the curve has no more, or more would deviate more.
[[nodiscard]] ChosenPoints Thin(const TableCurve& curve, std::size_t count);

}  // namespace zentab::curves

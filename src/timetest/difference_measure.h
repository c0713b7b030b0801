#pragma once

#include <vector>

#include "timetest/measured_points.h"
#include "timetest/point_equation.h"

namespace zentab::timetest {

/// Gives every point but the first and the last the measure of how much the curve bends there: the
/// second difference of the times, or what the equation says for the point after it, either
/// without its sign; 10000 for a point at or above the timeout level. Where the equation cannot be
/// evaluated the measure stays. False when `progress` stopped it.
[[nodiscard]] bool MeasureDifferences(std::vector<MeasuredPoint>& points, double timeoutLevel,
                                      PointEquation* equation, ProgressMeter progress);

}  // namespace zentab::timetest

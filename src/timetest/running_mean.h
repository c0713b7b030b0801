#pragma once

#include <vector>

#include "timetest/measured_points.h"
#include "timetest/point_equation.h"

namespace zentab::timetest {

/// Replaces every time by the mean of itself and the `width` - 1 times before it, as far as there
/// are that many; a width of 1 or less changes nothing. The times of a mean are added from the
/// oldest to the newest. Where no order of additions rounds, as with whole milliseconds, the time
/// taken does not depend on the width. False when `progress` stopped it; some times are means then.
[[nodiscard]] bool AverageTimes(std::vector<MeasuredPoint>& points, int width,
                                ProgressMeter progress);

/// Replaces every time by the value of the equation at its point, from the first to the last: the
/// times before it are replaced already. Before the first point all points are as the first one.
/// Where the equation cannot be evaluated the time stays. False as above.
[[nodiscard]] bool TransformTimes(std::vector<MeasuredPoint>& points, PointEquation& equation,
                                  ProgressMeter progress);

}  // namespace zentab::timetest

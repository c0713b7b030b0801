#pragma once

#include <cstdint>
#include <vector>

#include "timetest/measured_points.h"
#include "timetest/point_equation.h"

namespace zentab::timetest {

/// Filters the list by its triples of neighbouring points, from its beginning; what happens to the
/// middle point of one triple is what the next ones see.
///   1 to 3  a middle point at or above the timeout level is deleted; any other one whose time
///           lies outside those of its neighbours is by type 2 deleted, by type 3 brought to the
///           nearer of them;
///   4 to 6  the same as types 1 to 3 for triples with a time at or below the timeout level; the
///           others stay as they are.
/// Any other type does nothing. With an equation, evaluated for the last point of the triple, the
/// middle point gets its value as new time, or is deleted when that is negative; where it cannot be
/// evaluated the point stays. `effect` (null: none) gets what it did. False when `progress` stopped
/// it.
[[nodiscard]] bool FilterSpikes(std::vector<MeasuredPoint>& points, std::int16_t type,
                                double timeoutLevel, PointEquation* equation,
                                ProgressMeter progress, StageEffect* effect = nullptr);

}  // namespace zentab::timetest

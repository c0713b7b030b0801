#pragma once

#include <string_view>
#include <vector>

#include "timetest/measured_points.h"

namespace zentab::timetest {

/// The time from which on a point counts as one that did not trip: the catalogue's text as a
/// number, compared with times as they were brought to the value modes; below 1 it is 99 % of the
/// longest time.
[[nodiscard]] double TimeoutLevel(std::string_view catalogueText, double tMax);

/// Removes the points that did not trip: of those before the first trip all but the last, of those
/// after it all. The first and the last point of the list stay in any case. `effect` (null: none)
/// gets what was removed.
void PruneTimeouts(std::vector<MeasuredPoint>& points, double timeoutLevel,
                   StageEffect* effect = nullptr);

}  // namespace zentab::timetest

#pragma once

#include <cstddef>
#include <vector>

#include "curves/characteristic.h"

namespace zentab::curves {

/// How far before a definite step a load stands for what is before it, as a ratio.
inline constexpr double kJumpWidth = 1e-6;

/// The `count` loads from one to another between which straight lines (on logarithmic axes, or on
/// linear ones where `from` is 0) deviate least from a characteristic, by the largest ratio to its
/// time. `from` is below `to`. A definite step between them is a line of a millionth of its load.
/// The faults of CharacteristicCurve::TimeAt.
[[nodiscard]] Outcome<std::vector<double>> BestLoads(const CharacteristicCurve& curve, double from,
                                                     double to, std::size_t count);

}  // namespace zentab::curves

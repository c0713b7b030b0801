#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zentab::curves {

/// Places of a curve on axes of its own: y is the time, or on logarithmic axes its logarithm.
struct Places {
  std::vector<double> x;  // increasing
  std::vector<double> y;
  bool logarithmic = false;
};

/// Chooses at most `count` (from 2) of the candidates, places in increasing order with the first
/// and the last one among them, so that straight lines between them deviate least from all places,
/// by the largest ratio to the time. Within a ten-thousandth of the optimum for such candidates.
/// Takes time in proportion to the places, beside a part that grows with the square of the
/// candidates.
[[nodiscard]] std::vector<std::size_t> ChoosePolyline(const Places& places,
                                                      std::span<const std::size_t> candidates,
                                                      std::size_t count);

/// The largest deviation of the lines between chosen places (increasing, both ends among them).
[[nodiscard]] double DeviationOf(const Places& places, std::span<const std::size_t> chosen);

}  // namespace zentab::curves

#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>

#include "curves/table_curve.h"

namespace zentab::curves {

/// The most parameters that are fitted at once.
inline constexpr std::size_t kMostParameters = 3;
using Parameters = std::array<double, kMostParameters>;

/// A time in s at a load, from parameters; not finite where they are not possible.
using TimeModel = std::function<double(const Parameters&, double load)>;

/// What a parameter may be about, to tell how far to move it for a derivative.
struct ModelOf {
  TimeModel time;
  std::size_t count = 1;  // of the parameters
  Parameters scales{};    // of each
};

/// The sum of the squared relative errors; infinite where the model gives no time.
[[nodiscard]] double SquareSum(const TimeModel& time, const Parameters& parameters,
                               std::span<const Point> points);

using Covariance = std::array<std::array<double, kMostParameters>, kMostParameters>;

/// The inverse of the squared derivatives of the relative errors; nothing where the points leave a
/// parameter open.
[[nodiscard]] std::optional<Covariance> InverseNormal(const ModelOf& model,
                                                      const Parameters& parameters,
                                                      std::span<const Point> points);

/// A few steps of Gauss and Newton from a place near the minimum; none that makes it worse.
[[nodiscard]] Parameters Polished(const ModelOf& model, Parameters parameters,
                                  std::span<const Point> points);

/// The place of the least value between `from` and `to`, sought by Brent's method around the least
/// of a scan's.
[[nodiscard]] double LeastPlace(const std::function<double(double)>& value, double from, double to);

/// How many standard deviations cover 99.999 % with so many degrees of freedom (from 1), after
/// Student.
[[nodiscard]] double CoverageFactor(std::size_t degreesOfFreedom);

}  // namespace zentab::curves

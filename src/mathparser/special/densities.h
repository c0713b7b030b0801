#pragma once

#include "mathparser/special/double_double.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// From here on products of gammas and powers go through Stirling's form, not through pairs.
inline constexpr double kLargeArgument = 1000.0;

/// x ln(x / m) + m - x for x, m > 0, without the cancellation near x = m.
[[nodiscard]] DoubleDouble Deviance(double x, DoubleDouble m);

/// ln(gamma(a + b) / gamma(b)) for b >= 16 and a > -b / 2, to 1e-19 of 1 and 1e-22 of a and of the
/// smaller of b and 256 a.
[[nodiscard]] DoubleDouble LogOfRise(double a, double b);

/// x^a e^-x / gamma(a + 1), for a >= 0 and x > 0.
[[nodiscard]] Wide PoissonTerm(double a, double x);

/// x^a y^b / beta(a, b), for a, b > 0 and x + y = 1, both inside (0,1).
[[nodiscard]] Wide BetaTerm(double a, double b, DoubleDouble x, DoubleDouble y);

/// beta(a, b) where the larger of the two is at least kLargeArgument, the other one positive or at
/// least small beside it.
[[nodiscard]] inline bool IsLargeBeta(double a, double b) {
  const double larger = std::fmax(a, b);
  return larger >= kLargeArgument && std::fmin(a, b) > -0.5 * larger;
}
[[nodiscard]] double LargeBeta(double a, double b);

}  // namespace zentab::mathparser

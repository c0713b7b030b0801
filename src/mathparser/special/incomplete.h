#pragma once

#include "mathparser/special/double_double.h"

namespace zentab::mathparser {

/// The regularised incomplete gamma functions, lower and upper, for any a > 0 and x >= 0.
[[nodiscard]] double LowerGamma(double a, double x);
[[nodiscard]] double UpperGamma(double a, double x);

/// The regularised incomplete beta function of x for a, b > 0, where x + y = 1.
[[nodiscard]] double IncompleteBeta(DoubleDouble x, DoubleDouble y, double a, double b);

}  // namespace zentab::mathparser

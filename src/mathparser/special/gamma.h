#pragma once

#include "mathparser/special/double_double.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// mantissa * 10^exponent, far beyond the range of a double. The mantissa is NaN at a pole.
struct GammaPair {
  Wide mantissa = 1.0L;
  double exponent = 0.0;
};

/// The gamma function of x for what combines several of them, to about 1e-16. NaN where the
/// mantissa would have no digits left, beyond about 1e15.
[[nodiscard]] GammaPair GammaPairOf(DoubleDouble x);
/// e^x; NaN beyond about 1e15, 0 as far below 0.
[[nodiscard]] GammaPair ExpPairOf(DoubleDouble x);
[[nodiscard]] GammaPair operator*(GammaPair a, GammaPair b);
[[nodiscard]] GammaPair operator/(GammaPair a, GammaPair b);
/// The pair as one number: infinite or 0 where a double cannot hold it.
[[nodiscard]] Wide WideJoin(GammaPair pair);
[[nodiscard]] inline double Join(GammaPair pair) { return static_cast<double>(WideJoin(pair)); }

[[nodiscard]] double Gamma(double x);
[[nodiscard]] double GammaLn(double x);
[[nodiscard]] double Digamma(double x);
[[nodiscard]] double Beta(double a, double b);

/// sin(pi x), exact at the whole numbers.
[[nodiscard]] Wide SinPi(double x);

}  // namespace zentab::mathparser

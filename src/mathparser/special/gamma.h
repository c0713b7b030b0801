#pragma once

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// mantissa * 10^exponent, far beyond the range of a double. The mantissa is NaN at a pole.
struct GammaPair {
  double mantissa = 1.0;
  double exponent = 0.0;
};

/// The gamma function of x.
[[nodiscard]] GammaPair GammaPairOf(Wide x);
/// base^power of a positive base.
[[nodiscard]] GammaPair PowerPairOf(Wide base, Wide power);
[[nodiscard]] GammaPair operator*(GammaPair a, GammaPair b);
[[nodiscard]] GammaPair operator/(GammaPair a, GammaPair b);
/// The pair as one number: infinite or 0 where a double cannot hold it.
[[nodiscard]] double Join(GammaPair pair);

[[nodiscard]] double Gamma(double x);
[[nodiscard]] double GammaLn(double x);
[[nodiscard]] double Digamma(double x);
[[nodiscard]] double Beta(double a, double b);

/// sin(pi x), exact at the whole numbers.
[[nodiscard]] Wide SinPi(Wide x);

}  // namespace zentab::mathparser

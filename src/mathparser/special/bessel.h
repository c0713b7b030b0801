#pragma once

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// sum over k of product(j = 1..k) of (4 nu^2 - (2j - 1)^2) / (8 j x) * sign^k, broken off at its
/// smallest term: Hankel's expansion, the even and the odd terms apart (DLMF 10.17.1).
struct HankelSums {
  double even = 1.0;
  double odd = 0.0;
};
[[nodiscard]] HankelSums HankelExpansion(double fourNuSquared, double x);

/// About -log10 of J_n(x) or I_n(x) for n well above x.
[[nodiscard]] double DecayInDigits(double n, double x);

/// A whole number from which the recurrence downwards gives order n to all digits.
[[nodiscard]] double StartOrder(double n, double x);

}  // namespace zentab::mathparser

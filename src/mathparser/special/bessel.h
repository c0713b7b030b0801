#pragma once

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// About -log10 of J_n(x) or I_n(x) for n well above x.
[[nodiscard]] double DecayInDigits(double n, double x);

/// A whole number from which the recurrence downwards gives order n to all digits.
[[nodiscard]] double StartOrder(double n, double x);

}  // namespace zentab::mathparser

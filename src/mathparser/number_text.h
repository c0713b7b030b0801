#pragma once

#include <string>
#include <string_view>

namespace zentab::mathparser {

/// A number as messages show it: at most 15 significant digits, no trailing zeros, the given
/// decimal separator; 1E-05 or 1.5E+20 below 0.0001 and from 1E+15 up; NaN, INF, -INF.
[[nodiscard]] std::string NumberText(double number, std::string_view decimalSeparator);

}  // namespace zentab::mathparser

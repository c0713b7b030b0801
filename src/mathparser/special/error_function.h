#pragma once

namespace zentab::mathparser {

[[nodiscard]] double Erf(double x);
/// 1 - erf(x), with all its digits where it is tiny.
[[nodiscard]] double Erfc(double x);

}  // namespace zentab::mathparser

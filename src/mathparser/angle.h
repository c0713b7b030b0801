#pragma once

namespace zentab::mathparser {

/// The pi of the constants and the angle units: 15 digits, not the double nearest to pi.
inline constexpr double kPi = 3.14159265358979;

}  // namespace zentab::mathparser

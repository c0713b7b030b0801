#pragma once

namespace zentab::mathparser {

struct SineCosine {
  double sine;
  double cosine;
};

/// Sine and cosine of an angle in radians, right to the last digit or two also where the angle is
/// large, up to 1e15: the C library of Windows reduces angles by a pi of 66 bits, which loses a
/// digit with every digit of the angle.
[[nodiscard]] SineCosine SineCosineOf(double angle);

}  // namespace zentab::mathparser

#include "mathparser/special/large_angle.h"

#include <cmath>

#include "mathparser/special/double_double.h"

namespace zentab::mathparser {
namespace {

#ifdef _WIN32
constexpr bool kLibraryReducesExactly = false;
#else
constexpr bool kLibraryReducesExactly = true;
#endif

constexpr double kSmall = 512.0;
constexpr double kLargest = 1e15;

// pi / 2 as a sum of three doubles.
constexpr double kQuarters[] = {1.5707963267948966, 6.123233995736766e-17, -1.4973849048591833e-33};

}  // namespace

SineCosine SineCosineOf(double angle) {
  if (kLibraryReducesExactly || std::abs(angle) < kSmall || std::abs(angle) > kLargest) {
    return {std::sin(angle), std::cos(angle)};
  }
  const double quarters = std::nearbyint(angle / kQuarters[0]);
  const DoubleDouble first = ProductOf(quarters, kQuarters[0]);
  // The difference of two numbers this near is exact.
  DoubleDouble rest = SumOf(angle - first.high, -first.low);
  rest = rest - ProductOf(quarters, kQuarters[1]) - quarters * kQuarters[2];
  const double sine = std::sin(rest.high) + std::cos(rest.high) * rest.low;
  const double cosine = std::cos(rest.high) - std::sin(rest.high) * rest.low;
  switch (static_cast<int>(std::fmod(quarters, 4.0) + 4.0) % 4) {
    case 0:
      return {sine, cosine};
    case 1:
      return {cosine, -sine};
    case 2:
      return {-sine, -cosine};
    default:
      return {-cosine, sine};
  }
}

}  // namespace zentab::mathparser

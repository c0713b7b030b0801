#include <array>
#include <numbers>

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr double kSeriesEnd = 2.5;
constexpr double kAsymptoticStart = 5.0;
constexpr double kHalfPi = std::numbers::pi / 2.0;

// S = 1/2 - f cos u - g sin u, C = 1/2 + f sin u - g cos u with u = pi x^2 / 2 (DLMF 7.5.3, 7.5.4).
struct Auxiliary {
  double f, g;
};

// DLMF 7.12.2 and 7.12.3 for x >= 5.
Auxiliary Asymptotic(double x) {
  const double inverse = 1.0 / (std::numbers::pi * x * x);
  double even = 1.0;
  double f = 0.0;
  double g = 0.0;
  for (int k = 0; k < 40 && std::abs(even) > 1e-18; k += 2) {
    f += even;
    const double odd = even * (2 * k + 1) * inverse;
    g += odd;
    even = -odd * (2 * k + 3) * inverse;
  }
  const double size = 1.0 / (std::numbers::pi * x);
  return {f * size, g * size};
}

// The continued fraction of erfc (DLMF 7.9.2) in the direction where its square is imaginary, from
// a depth that is enough for x >= 2.5.
Auxiliary Fraction(double x) {
  const double v = std::numbers::pi * x * x;  // 2 z^2 = -i v
  const int depth = 14 + static_cast<int>(480.0 / v);
  double real = 4.0 * depth + 1.0;
  double imaginary = -v;
  for (int k = depth; k > 0; --k) {
    const double step = k;
    const double scale = (2.0 * step - 1.0) * 2.0 * step / (real * real + imaginary * imaginary);
    real = 4.0 * step - 3.0 - scale * real;
    imaginary = -v + scale * imaginary;
  }
  // (1+i)/2 erfc(z) e^(z^2) = x / fraction, which is g + i f.
  const double norm = real * real + imaginary * imaginary;
  return {-imaginary / norm * x, real / norm * x};
}

// The sine and cosine of pi x^2 / 2: whole turns go before the rounding of the square can show.
struct Phase {
  double sine, cosine;
  explicit Phase(double x) {
    const double square = x * x;
    const double turns = std::fmod(square, 4.0) + std::fma(x, x, -square);
    const double folded = std::remainder(turns, 4.0);
    sine = std::sin(kHalfPi * folded);
    cosine = std::cos(kHalfPi * folded);
  }
};

// The sum of (-1)^k u^(2k) / (2k+first)! / (4k+divisor) times what stands before it (DLMF 7.6.4 and
// 7.6.6).
double SeriesOf(double x, bool isSine) {
  const Wide wide = x;
  const Wide u = kWidePi / 2.0L * wide * wide;
  Wide term = isSine ? wide * u : wide;
  Wide n = isSine ? 1.0L : 0.0L;
  Wide sum = term / (2.0L * n + 1.0L);
  for (; n < 60.0L; n += 2.0L) {
    term *= -u * u / ((n + 1.0L) * (n + 2.0L));
    sum += term / (2.0L * n + 5.0L);
    if (std::abs(term) < 1e-21L * std::abs(sum)) break;
  }
  return static_cast<double>(sum);
}

double FresnelOf(double x, bool isSine) {
  const double size = std::abs(x);
  if (size <= kSeriesEnd) return SeriesOf(x, isSine);
  if (size > 1e17) return std::copysign(0.5, x);
  const Auxiliary rest = size < kAsymptoticStart ? Fraction(size) : Asymptotic(size);
  const Phase phase(size);
  const double value = isSine ? 0.5 - rest.f * phase.cosine - rest.g * phase.sine
                              : 0.5 + rest.f * phase.sine - rest.g * phase.cosine;
  return std::copysign(value, x);
}

// The integral of sin(pi t^2 / 2) from 0 to x. Domain: all numbers. Method: power series up to 2.5
// (DLMF 7.6.6), continued fraction up to 5 (7.9.2), asymptotic series beyond (7.12.2). Error:
// measured up to 1.5e-16 relative.
double FresnelS(double x) { return FresnelOf(x, true); }

// The integral of cos(pi t^2 / 2) from 0 to x. Domain and method as above (DLMF 7.6.4). Error:
// measured up to 1.6e-16 relative.
double FresnelC(double x) { return FresnelOf(x, false); }

constexpr std::array kFunctions = {Special<FresnelS>("fresnels", 83),
                                   Special<FresnelC>("fresnelc", 84)};

}  // namespace

FunctionFamily FresnelFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

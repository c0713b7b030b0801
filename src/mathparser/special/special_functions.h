#pragma once

#include <cmath>
#include <limits>
#include <string_view>

#include "mathparser/function_catalogue.h"
#include "mathparser/integer_math.h"
#include "mathparser/special/double_double.h"

namespace zentab::mathparser {

/// What recurrences and cancelling series are carried in: 64 bits of mantissa where the processor
/// has them. Where it is no wider than double, the results keep 13 digits.
using Wide = long double;

inline constexpr Wide kWidePi = 3.14159265358979323846264338327950288L;
inline constexpr Wide kWideEuler = 0.57721566490153286060651209008240243L;

/// The largest order of a function that is reached step by step; beyond, it fails.
inline constexpr double kLargestOrder = 50000.0;

[[nodiscard]] inline bool IsWholeNumber(double a) { return std::trunc(a) == a; }
[[nodiscard]] inline bool IsOddNumber(double a) { return std::abs(std::fmod(a, 2.0)) == 1.0; }

/// Rounding must not take a probability above 1; NaN stays.
[[nodiscard]] inline double AtMostOne(double p) { return p > 1.0 ? 1.0 : p; }

/// e^a by the double exponential, which is several times as fast as the Wide one.
[[nodiscard]] inline Wide WideExp(DoubleDouble a) {
  const Wide power = std::exp(a.high);
  return power > 0.0L ? power + power * static_cast<Wide>(a.low) : power;
}

/// The entry of a function of 1 to 4 plain numbers.
template <double (*F)(double)>
constexpr FunctionEntry Special(std::string_view keyword, int code) {
  return {keyword, code, 1, [](const double* a, CallContext&) { return F(a[0]); }};
}
template <double (*F)(double, double)>
constexpr FunctionEntry Special(std::string_view keyword, int code) {
  return {keyword, code, 2, [](const double* a, CallContext&) { return F(a[0], a[1]); }};
}
template <double (*F)(double, double, double)>
constexpr FunctionEntry Special(std::string_view keyword, int code) {
  return {keyword, code, 3, [](const double* a, CallContext&) { return F(a[0], a[1], a[2]); }};
}
template <double (*F)(double, double, double, double)>
constexpr FunctionEntry Special(std::string_view keyword, int code) {
  return {keyword, code, 4,
          [](const double* a, CallContext&) { return F(a[0], a[1], a[2], a[3]); }};
}

/// The families, each in a file of its own.
[[nodiscard]] FunctionFamily GammaFunctions();
[[nodiscard]] FunctionFamily ErrorFunctions();
[[nodiscard]] FunctionFamily IncompleteGammaFunctions();
[[nodiscard]] FunctionFamily IncompleteBetaFunctions();
[[nodiscard]] FunctionFamily DistributionFunctions();
[[nodiscard]] FunctionFamily BesselFunctions();
[[nodiscard]] FunctionFamily ModifiedBesselFunctions();
[[nodiscard]] FunctionFamily AiryFunctions();
[[nodiscard]] FunctionFamily EllipticFunctions();
[[nodiscard]] FunctionFamily ExponentialIntegralFunctions();
[[nodiscard]] FunctionFamily SineIntegralFunctions();
[[nodiscard]] FunctionFamily FresnelFunctions();
[[nodiscard]] FunctionFamily ZetaFunctions();
[[nodiscard]] FunctionFamily PolynomialFunctions();
[[nodiscard]] FunctionFamily HypergeometricFunctions();
[[nodiscard]] FunctionFamily WaveformFunctions();

}  // namespace zentab::mathparser

#pragma once

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace zentab::mathparser {

static_assert(FLT_EVAL_METHOD == 0, "every operation must round to a double at once");

/// A number as the unevaluated sum of two doubles, the second at most half a unit in the last
/// place of the first: about 32 digits with the range of a double (Dekker, A floating-point
/// technique for extending the available precision, Numer. Math. 18, 1971). An infinity or NaN in
/// `high` makes `low` meaningless.
struct DoubleDouble {
  double high = 0.0;
  double low = 0.0;

  constexpr DoubleDouble() = default;
  // cppcheck-suppress noExplicitConstructor; implicit, as from float to double
  constexpr DoubleDouble(double a) : high(a) {}
  constexpr DoubleDouble(double a, double b) : high(a), low(b) {}
  [[nodiscard]] explicit constexpr operator double() const { return high; }
};

/// a + b exactly.
[[nodiscard]] constexpr DoubleDouble SumOf(double a, double b) {
  const double sum = a + b;
  const double taken = sum - a;
  return {sum, (a - (sum - taken)) + (b - taken)};
}
/// The same for |a| >= |b|.
[[nodiscard]] constexpr DoubleDouble OrderedSumOf(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

/// Rounded to 26 bits, so that what is left of a finite number has no more than 26 either, its sign
/// aside. Infinite from 2^1024 - 2^997 on.
[[nodiscard]] constexpr double UpperHalf(double a) {
  constexpr std::uint64_t kHalf = std::uint64_t{1} << 26U;
  constexpr std::uint64_t kUpper = ~(2 * kHalf - 1);
  return std::bit_cast<double>((std::bit_cast<std::uint64_t>(a) + kHalf) & kUpper);
}
/// a * b exactly, as long as nothing overflows (see UpperHalf) and the product is above 1e-290:
/// each step of the lower part is exact in this order (Dekker), in no other. Not by std::fma, which
/// is slow where the processor has none.
[[nodiscard]] constexpr DoubleDouble ProductOf(double a, double b) {
  const double product = a * b;
  const double aHigh = UpperHalf(a);
  const double bHigh = UpperHalf(b);
  const double aLow = a - aHigh;
  const double bLow = b - bHigh;
  return {product, (((aHigh * bHigh - product) + aHigh * bLow) + aLow * bHigh) + aLow * bLow};
}

[[nodiscard]] constexpr DoubleDouble operator-(DoubleDouble a) { return {-a.high, -a.low}; }
[[nodiscard]] constexpr DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = SumOf(a.high, b.high);
  const DoubleDouble low = SumOf(a.low, b.low);
  const DoubleDouble sum = OrderedSumOf(high.high, high.low + low.high);
  return OrderedSumOf(sum.high, sum.low + low.low);
}
[[nodiscard]] constexpr DoubleDouble operator+(DoubleDouble a, double b) {
  const DoubleDouble sum = SumOf(a.high, b);
  return OrderedSumOf(sum.high, sum.low + a.low);
}
[[nodiscard]] constexpr DoubleDouble operator-(DoubleDouble a, DoubleDouble b) { return a + -b; }
[[nodiscard]] constexpr DoubleDouble operator-(DoubleDouble a, double b) { return a + -b; }
[[nodiscard]] constexpr DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble product = ProductOf(a.high, b.high);
  return OrderedSumOf(product.high, product.low + (a.high * b.low + a.low * b.high));
}
[[nodiscard]] constexpr DoubleDouble operator*(DoubleDouble a, double b) {
  const DoubleDouble product = ProductOf(a.high, b);
  return OrderedSumOf(product.high, product.low + a.low * b);
}
[[nodiscard]] constexpr DoubleDouble operator/(DoubleDouble a, DoubleDouble b) {
  const double quotient = a.high / b.high;
  const DoubleDouble rest = a - b * quotient;
  return OrderedSumOf(quotient, rest.high / b.high);
}
constexpr DoubleDouble& operator+=(DoubleDouble& a, DoubleDouble b) { return a = a + b; }
constexpr DoubleDouble& operator*=(DoubleDouble& a, DoubleDouble b) { return a = a * b; }
[[nodiscard]] constexpr bool operator<(DoubleDouble a, DoubleDouble b) {
  return a.high < b.high || (a.high == b.high && a.low < b.low);
}
[[nodiscard]] constexpr DoubleDouble Abs(DoubleDouble a) { return a.high < 0.0 ? -a : a; }

/// ln(a) for a > 0, its absolute error about 1e-22 and 1e-31 of the value.
[[nodiscard]] DoubleDouble Log(DoubleDouble a);

/// ln(1 + a) for a > -1; a tiny one keeps its digits.
[[nodiscard]] DoubleDouble LogOnePlus(DoubleDouble a);

/// e^a, correct to about a unit in the last place of the double.
[[nodiscard]] inline double Exp(DoubleDouble a) {
  const double power = std::exp(a.high);
  // Beyond the range of a double the lower part means nothing.
  return power > 0.0 && std::isfinite(power) ? power + power * a.low : power;
}

inline constexpr DoubleDouble kPi{3.141592653589793116, 1.2246467991473532072e-16};
inline constexpr DoubleDouble kLn10{2.302585092994045901, -2.1707562233822493508e-16};

}  // namespace zentab::mathparser

#include "mathparser/special/densities.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "mathparser/special/gamma.h"

namespace zentab::mathparser {
namespace {

constexpr double kSmallShape = 16.0;

// ln gamma(x) - ((x - 1/2) ln x - x + ln(2 pi) / 2) for x >= 16 (Abramowitz & Stegun 6.1.41).
double StirlingRest(double x) {
  constexpr std::array kTerms = {1.0 / 12.0,   -1.0 / 360.0,      1.0 / 1260.0, -1.0 / 1680.0,
                                 1.0 / 1188.0, -691.0 / 360360.0, 1.0 / 156.0,  -3617.0 / 122400.0};
  const double square = 1.0 / x / x;
  double sum = 0.0;
  for (std::size_t k = kTerms.size(); k > 0; --k) sum = sum * square + kTerms[k - 1];
  return sum / x;
}

}  // namespace

DoubleDouble LogOfRise(double a, double b) {
  const DoubleDouble sum = SumOf(a, b);
  return DoubleDouble(a) * (Log(sum) - DoubleDouble(1.0)) +
         (DoubleDouble(b) - DoubleDouble(0.5)) * LogOnePlus(DoubleDouble(a) / DoubleDouble(b)) +
         DoubleDouble(StirlingRest(sum.high) - StirlingRest(b));
}

// Loader, Fast and accurate computation of binomial probabilities, 2000.
DoubleDouble Deviance(double x, DoubleDouble m) {
  const DoubleDouble difference = DoubleDouble(x) - m;
  const DoubleDouble sum = DoubleDouble(x) + m;
  if (std::abs(difference.high) >= 0.1 * sum.high) {
    return DoubleDouble(x) * Log(DoubleDouble(x) / m) - difference;
  }
  const DoubleDouble v = difference / sum;
  const double square = v.high * v.high;
  // 1/3 + v^2/5 + v^4/7 + ...
  double series = 0.0;
  for (double j = 17.0; j >= 3.0; j -= 2.0) series = series * square + 1.0 / j;
  return difference * v + DoubleDouble(2.0 * x * v.high * square * series);
}

Wide PoissonTerm(double a, double x) {
  if (a == 0.0) return std::exp(-x);
  if (a >= kLargeArgument) {
    return Exp(-Deviance(a, x) - DoubleDouble(StirlingRest(a))) /
           std::sqrt(2.0 * std::numbers::pi * a);
  }
  const DoubleDouble power = DoubleDouble(a) * Log(x) - DoubleDouble(x);
  return WideJoin(ExpPairOf(power) / GammaPairOf(SumOf(a, 1.0)));
}

Wide BetaTerm(double a, double b, DoubleDouble x, DoubleDouble y) {
  if (b < a) {
    std::swap(a, b);
    std::swap(x, y);
  }
  const DoubleDouble sum = SumOf(a, b);
  const DoubleDouble lower = x.high < 0.5 ? LogOnePlus(-x) : Log(y);
  const DoubleDouble powers = DoubleDouble(a) * Log(x) + DoubleDouble(b) * lower;
  if (b < kLargeArgument) {
    return WideJoin(ExpPairOf(powers) * GammaPairOf(sum) / (GammaPairOf(a) * GammaPairOf(b)));
  }
  if (a >= kSmallShape) {
    const double rests = StirlingRest(sum.high) - StirlingRest(a) - StirlingRest(b);
    return Exp(DoubleDouble(rests) - Deviance(a, sum * x) - Deviance(b, sum * y)) *
           std::sqrt(a / sum.high * b / (2.0 * std::numbers::pi));
  }
  return Exp(powers + LogOfRise(a, b)) / Join(GammaPairOf(a));
}

double LargeBeta(double a, double b) {
  if (b < a) std::swap(a, b);
  if (a < kSmallShape) return Join(GammaPairOf(a) * ExpPairOf(-LogOfRise(a, b)));
  const double sum = a + b;
  const DoubleDouble ratio = DoubleDouble(a) / DoubleDouble(b);
  const double rests = StirlingRest(a) + StirlingRest(b) - StirlingRest(sum);
  // a ln(a / (a + b)) - b ln(1 + a / b)
  const DoubleDouble powers =
      DoubleDouble(a) * Log(DoubleDouble(a) / SumOf(a, b)) - DoubleDouble(b) * LogOnePlus(ratio);
  return Exp(powers + DoubleDouble(rests)) *
         std::sqrt(2.0 * std::numbers::pi * (1.0 / a + 1.0 / b));
}

}  // namespace zentab::mathparser

#include "mathparser/special/densities.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "mathparser/special/gamma.h"

namespace zentab::mathparser {
namespace {

constexpr double kSmallShape = 16.0;

// ln gamma(x) - ((x - 1/2) ln x - x + ln(2 pi) / 2) for x >= 16 (Abramowitz & Stegun 6.1.41).
Wide StirlingRest(Wide x) {
  constexpr std::array kTerms = {1.0L / 12.0L,    -1.0L / 360.0L,      1.0L / 1260.0L,
                                 -1.0L / 1680.0L, 1.0L / 1188.0L,      -691.0L / 360360.0L,
                                 1.0L / 156.0L,   -3617.0L / 122400.0L};
  const Wide square = 1.0L / (x * x);
  Wide sum = 0.0L;
  for (std::size_t k = kTerms.size(); k > 0; --k) sum = sum * square + kTerms[k - 1];
  return sum / x;
}

// x ln(x / m) + m - x without the cancellation near x = m (Loader, Fast and accurate computation
// of binomial probabilities, 2000).
Wide Deviance(Wide x, Wide m) {
  const Wide difference = x - m;
  if (std::abs(difference) >= 0.1L * (x + m)) return x * std::log(x / m) - difference;
  const Wide v = difference / (x + m);
  Wide sum = difference * v;
  Wide term = 2.0L * x * v;
  for (Wide j = 3.0L; j < 60.0L; j += 2.0L) {
    term *= v * v;
    const Wide next = sum + term / j;
    if (next == sum) break;
    sum = next;
  }
  return sum;
}

double Exp(Wide a) { return static_cast<double>(std::exp(a)); }

// ln of (gamma(a + b) / gamma(b)) for b >= 16 and a small beside it.
Wide LogOfRise(Wide a, Wide b) {
  return a * std::log(a + b) + (b - 0.5L) * std::log1p(a / b) - a + StirlingRest(a + b) -
         StirlingRest(b);
}

}  // namespace

double PoissonTerm(double a, Wide x) {
  if (a == 0.0) return Exp(-x);
  const Wide wide = a;
  if (a >= kLargeArgument) {
    return Exp(-Deviance(wide, x) - StirlingRest(wide)) / std::sqrt(2.0 * std::numbers::pi * a);
  }
  const GammaPair gamma = GammaPairOf(wide + 1.0L);
  const Wide power = wide * std::log(x) - x;
  return Exp(power - static_cast<Wide>(gamma.exponent) * kWideLn10) / gamma.mantissa;
}

double BetaTerm(double a, double b, Wide x, Wide y) {
  if (b < a) {
    std::swap(a, b);
    std::swap(x, y);
  }
  const Wide sum = static_cast<Wide>(a) + static_cast<Wide>(b);
  if (b < kLargeArgument) {
    return Join(PowerPairOf(x, a) * PowerPairOf(y, b) * GammaPairOf(sum) / GammaPairOf(a) /
                GammaPairOf(b));
  }
  if (a >= kSmallShape) {
    const Wide rests = StirlingRest(sum) - StirlingRest(a) - StirlingRest(b);
    const auto width = static_cast<double>(static_cast<Wide>(a) / sum * static_cast<Wide>(b));
    return Exp(rests - Deviance(a, sum * x) - Deviance(b, sum * y)) *
           std::sqrt(width / (2.0 * std::numbers::pi));
  }
  const Wide powers = static_cast<Wide>(a) * std::log(x) +
                      static_cast<Wide>(b) * (x < 0.5L ? std::log1p(-x) : std::log(y));
  return Exp(powers + LogOfRise(a, b)) / Gamma(a);
}

double LargeBeta(double a, double b) {
  if (b < a) std::swap(a, b);
  if (a < kSmallShape) return Gamma(a) * Exp(-LogOfRise(a, b));
  const Wide small = a;
  const Wide large = b;
  const Wide rests = StirlingRest(small) + StirlingRest(large) - StirlingRest(small + large);
  const Wide powers = small * std::log(small / (small + large)) - large * std::log1p(small / large);
  return Exp(rests + powers) *
         static_cast<double>(std::sqrt(2.0L * kWidePi * (1.0L / small + 1.0L / large)));
}

}  // namespace zentab::mathparser

#include "mathparser/special/gamma.h"

#include <array>

#include "mathparser/special/densities.h"

namespace zentab::mathparser {
namespace {

constexpr Wide kG = 4.7421875L;
constexpr double kRootOfTwoPi = 2.5066282746310007;       // sqrt(6.28318530717959)
constexpr double kExpOfMinusG = 0.008719551289599268992;  // e^-g
constexpr std::array kLanczos = {0.999999999999997,     57.1562356658629,     -59.5979603554755,
                                 14.1360979747417,      -0.49191381609762,    3.39946499848119e-5,
                                 4.65236289270486e-5,   -9.83744753048796e-5, 0.000158088703224912,
                                 -0.000210264441724105, 0.000217439618115213, -0.000164318106536764,
                                 8.44182239838528e-5,   -2.61908384015814e-5, 3.68991826595316e-6};

// B_2k / (2k), Bernoulli's numbers over their index.
constexpr std::array kDigammaTerms = {1.0 / 12.0,         -1.0 / 120.0,     1.0 / 252.0,
                                      -1.0 / 240.0,       5.0 / 660.0,      -691.0 / 32760.0,
                                      7.0 / 84.0,         -3617.0 / 8160.0, 43867.0 / 14364.0,
                                      -174611.0 / 6600.0, 854513.0 / 3036.0};

// 10^k for the whole k from 0 to 308.
const std::array<double, 309>& PowersOfTen() {
  static const std::array<double, 309> kPowers = [] {
    std::array<double, 309> powers{};
    for (std::size_t k = 0; k < powers.size(); ++k) {
      powers[k] = static_cast<double>(std::pow(10.0L, static_cast<Wide>(k)));
    }
    return powers;
  }();
  return kPowers;
}

double TimesPowerOfTen(double mantissa, double exponent) {
  const auto index = static_cast<std::size_t>(std::abs(exponent));
  return exponent < 0.0 ? mantissa / PowersOfTen()[index] : mantissa * PowersOfTen()[index];
}

// Brings a mantissa to [1,10).
GammaPair Normalised(double mantissa, double exponent) {
  const double magnitude = std::abs(mantissa);
  if (magnitude >= 1.0 && magnitude < 10.0) return {mantissa, exponent};
  if (magnitude >= 10.0 && magnitude < 100.0) return {mantissa / 10.0, exponent + 1.0};
  const double k = std::floor(std::log10(magnitude));
  if (!(std::abs(k) < 308.0)) return {mantissa, exponent};
  return {TimesPowerOfTen(mantissa, -k), exponent + k};
}

// 10^decimals.
GammaPair PowerOfTen(Wide decimals, double factor) {
  const Wide exponent = std::floor(decimals);
  const Wide mantissa = std::exp((decimals - exponent) * kWideLn10);
  return Normalised(static_cast<double>(mantissa) * factor, static_cast<double>(exponent));
}

// x > 0. Adding k-1 to x instead of k to x-1 keeps every digit of a tiny x.
GammaPair LanczosPair(Wide x) {
  const auto rounded = static_cast<double>(x);
  double s = kLanczos[0];
  for (std::size_t k = kLanczos.size() - 1; k > 0; --k) {
    s += kLanczos[k] / (rounded + static_cast<double>(k - 1));
  }
  const Wide decimals = (x - 0.5L) * (std::log(x + (kG - 0.5L)) - 1.0L) / kWideLn10;
  return PowerOfTen(decimals, s * kRootOfTwoPi * kExpOfMinusG);
}

constexpr std::array kFunctions = {
    Special<Gamma>("gamma", 47), Special<GammaLn>("gammaln", 48), Special<Digamma>("digamma", 49),
    Special<Digamma>("psi", 49), Special<Beta>("beta", 50),
};

}  // namespace

Wide SinPi(Wide x) {
  const Wide rest = std::remainder(x, 2.0L);
  if (std::abs(rest) == 1.0L) return 0.0L;
  const Wide folded = rest > 0.5L ? 1.0L - rest : rest < -0.5L ? -1.0L - rest : rest;
  return std::sin(kWidePi * folded);
}

GammaPair GammaPairOf(Wide x) {
  if (x > 0.0L) return LanczosPair(x);
  if (std::trunc(x) == x) return {kNoNumber, 0.0};
  // DLMF 5.5.3: gamma(x) = pi / (sin(pi x) gamma(1 - x)).
  const GammaPair mirrored = LanczosPair(1.0L - x);
  const auto sine = static_cast<double>(SinPi(x) / kWidePi);
  return Normalised(1.0 / mirrored.mantissa / sine, -mirrored.exponent);
}

GammaPair PowerPairOf(Wide base, Wide power) {
  return PowerOfTen(power == 0.0L ? 0.0L : power * std::log10(base), 1.0);
}

GammaPair operator*(GammaPair a, GammaPair b) {
  return {a.mantissa * b.mantissa, a.exponent + b.exponent};
}

GammaPair operator/(GammaPair a, GammaPair b) {
  return {a.mantissa / b.mantissa, a.exponent - b.exponent};
}

double Join(GammaPair pair) {
  if (std::abs(pair.exponent) < 290.0) return TimesPowerOfTen(pair.mantissa, pair.exponent);
  if (std::abs(pair.exponent) > 1000.0)
    return pair.exponent < 0.0 ? 0.0 : pair.mantissa * std::numeric_limits<double>::infinity();
  return static_cast<double>(pair.mantissa * std::pow(10.0L, static_cast<Wide>(pair.exponent)));
}

// The gamma function. Domain: all but 0, -1, -2, ...; finite up to 171.6. Method: Lanczos' series
// with g = 4.7421875 and 15 terms (Lanczos, SIAM J. Numer. Anal. B 1, 1964), the power as a decimal
// logarithm; reflection below 0 (DLMF 5.5.3). Error: measured up to 3.3e-15 relative.
double Gamma(double x) { return Join(GammaPairOf(x)); }

// ln(gamma(x)). Domain: where gamma(x) > 0. Method: from the same pair. Error: measured up to
// 2.0e-14 of the value or, near zeros, of 0.1.
double GammaLn(double x) {
  const GammaPair pair = GammaPairOf(x);
  const Wide exponent = static_cast<Wide>(pair.exponent) * kWideLn10;
  return static_cast<double>(exponent + static_cast<Wide>(std::log(pair.mantissa)));
}

// gamma'(x) / gamma(x). Domain: all but 0, -1, -2, ... Method: raised to 8 by recurrence (DLMF
// 5.5.2), there the asymptotic series (Abramowitz & Stegun 6.3.18); reflection below 0 (5.5.4).
// Error: measured up to 1.0e-16 of the value or, near zeros, of 0.1.
double Digamma(double x) {
  if (x <= 0.0 && IsWholeNumber(x)) return kNoNumber;
  Wide result = 0.0L;
  Wide z = x;
  if (x < 0.0) {
    const Wide rest = std::remainder(z, 1.0L);
    result = std::abs(rest) == 0.5L ? 0.0L : -kWidePi / std::tan(kWidePi * rest);
    z = 1.0L - z;
  }
  for (; z < 8.0L; z += 1.0L) result -= 1.0L / z;
  const auto inverse = static_cast<double>(1.0L / z);
  const double square = inverse * inverse;
  double series = 0.0;
  for (std::size_t k = kDigammaTerms.size(); k > 0; --k) {
    series = (series + kDigammaTerms[k - 1]) * square;
  }
  result += std::log(z) - 0.5L / z - static_cast<Wide>(series);
  return static_cast<double>(result);
}

// gamma(a) gamma(b) / gamma(a + b). Domain: all but the poles of the two upper gammas. Method: the
// pairs, joined at the end; Stirling's form once an argument is large (densities.h), where the
// exponents of the pairs would take the digits. Error: measured up to 4.5e-15 relative.
double Beta(double a, double b) {
  if (a > 0.0 && b > 0.0 && std::fmax(a, b) >= kLargeArgument) return LargeBeta(a, b);
  const Wide sum = static_cast<Wide>(a) + static_cast<Wide>(b);
  const GammaPair upper = GammaPairOf(a) * GammaPairOf(b);
  if (std::fmin(a, b) < -kLargeArgument) return kNoNumber;
  if (sum <= 0.0L && std::trunc(sum) == sum) return upper.mantissa * 0.0;
  return Join(upper / GammaPairOf(sum));
}

FunctionFamily GammaFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

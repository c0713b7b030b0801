#include "mathparser/special/gamma.h"

#include <array>
#include <numbers>

#include "mathparser/special/densities.h"

namespace zentab::mathparser {
namespace {

constexpr double kG = 4.7421875;
// ln 10 in a part of 41 bits, whose multiples up to 2048 are exact, and the rest.
constexpr double kLn10Upper = 0x1.26bb1bbb55p+1;
constexpr double kLn10Lower = 5.779870756024433e-13;
constexpr double kLeastOfBeta = -1e9;  // below, the pairs would lose digits
constexpr double kMostPower = 1e15;    // of e: beyond, a pair of doubles leaves no mantissa

// Lanczos' coefficients c0 to c14; the first two fractions nearly cancel and so are one, c1 / x +
// c2 / (x + 1). The scale is sqrt(2 pi) / e^g.
struct Lanczos {
  Wide c0, c1, c1AndC2;
  std::array<double, 12> rest;
  Wide scale;
};
// What defines gamma and gammaln to their last digit, with 2 pi = 6.28318530717959.
constexpr Lanczos kDefining = {
    0.999999999999997L,
    57.1562356658629L,
    57.1562356658629L - 59.5979603554755L,
    {14.1360979747417, -0.49191381609762, 3.39946499848119e-5, 4.65236289270486e-5,
     -9.83744753048796e-5, 0.000158088703224912, -0.000210264441724105, 0.000217439618115213,
     -0.000164318106536764, 8.44182239838528e-5, -2.61908384015814e-5, 3.68991826595316e-6},
    0.0218566738046047371571556L};
// Those leave an error of 2.7e-15, which a product of several would multiply. These, fitted to the
// gamma function at 15 points, leave 3e-17.
constexpr Lanczos kFitted = {
    1.0L,
    57.15623566586286343251L,
    -2.44172468960336392841L,
    {14.136097974562613, -0.49191381801028433, 3.4068459931236854e-05, 4.574918711162878e-05,
     -9.40726462985487e-05, 0.00014339507130289826, -0.0001774869495767009, 0.00016865143164969962,
     -0.00011618689485118836, 5.4165735562617584e-05, -1.5212930851126913e-05,
     1.938498512420694e-06},
    0.0218566738046047310294759L};

// B_2k / (2k), Bernoulli's numbers over their index.
constexpr std::array kDigammaTerms = {1.0 / 12.0,         -1.0 / 120.0,     1.0 / 252.0,
                                      -1.0 / 240.0,       5.0 / 660.0,      -691.0 / 32760.0,
                                      7.0 / 84.0,         -3617.0 / 8160.0, 43867.0 / 14364.0,
                                      -174611.0 / 6600.0, 854513.0 / 3036.0};

constexpr int kMostDecimals = 290;

constexpr std::array<Wide, kMostDecimals + 1> MakePowersOfTen() {
  std::array<Wide, kMostDecimals + 1> powers{};
  DoubleDouble power = 1.0;
  for (Wide& entry : powers) {
    entry = static_cast<Wide>(power.high) + static_cast<Wide>(power.low);
    power = power * 10.0;
  }
  return powers;
}
constexpr std::array<Wide, kMostDecimals + 1> kPowersOfTen = MakePowersOfTen();

// |exponent| <= 290.
Wide TimesPowerOfTen(Wide mantissa, double exponent) {
  const Wide power = kPowersOfTen[static_cast<std::size_t>(std::abs(exponent))];
  return exponent < 0.0 ? mantissa / power : mantissa * power;
}

// Brings a mantissa to [1,10).
GammaPair Normalised(Wide mantissa, double exponent) {
  const auto magnitude = std::abs(static_cast<double>(mantissa));
  if (magnitude >= 1.0 && magnitude < 10.0) return {mantissa, exponent};
  if (magnitude >= 0.1 && magnitude < 1.0) return {mantissa * 10.0L, exponent - 1.0};
  if (magnitude >= 0.01 && magnitude < 0.1) return {mantissa * 100.0L, exponent - 2.0};
  const double k = std::floor(std::log10(magnitude));
  if (!(std::abs(k) <= kMostDecimals)) return {mantissa, exponent};
  return {TimesPowerOfTen(mantissa, -k), exponent + k};
}

// (c0 + sum of c_k / (z + k)) times the scale for z = x - 1; adding k - 1 to x keeps every digit of
// a tiny x.
template <class Real>
Real LanczosSum(const Lanczos& c, double x) {
  const auto ends = static_cast<Real>(c.c0);
  if (x > 1e17) return ends * static_cast<Real>(c.scale);
  std::array<double, 12> terms;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    terms[i] = c.rest[i] / (x + static_cast<double>(i + 2));
  }
  double small = 0.0;
  for (std::size_t i = terms.size() - 1; i > 0; --i) small += terms[i];
  const Real z = x;
  const Real first =
      (static_cast<Real>(c.c1AndC2) * z + static_cast<Real>(c.c1)) / (z * (z + Real{1}));
  return (ends + static_cast<Real>(terms[0]) + static_cast<Real>(small) + first) *
         static_cast<Real>(c.scale);
}

// e^power * factor. The quotient by ln(10) is the decimal logarithm; its whole part becomes the
// exponent, and what is left of the power the mantissa.
GammaPair PairOf(DoubleDouble power, Wide factor) {
  if (power.high <= -kMostPower) return {0.0L, 0.0};
  if (!(power.high < kMostPower)) return {kNoNumber, 0.0};
  const double exponent = std::floor(power.high * std::numbers::log10e);
  DoubleDouble rest = SumOf(power.high, -exponent * kLn10Upper);
  rest.low += power.low - exponent * kLn10Lower;
  if (std::abs(exponent) >= 2048.0) rest = power - kLn10 * exponent;
  return Normalised(WideExp(rest) * factor, exponent);
}

// x > 0.
GammaPair LanczosPair(const Lanczos& c, DoubleDouble x) {
  constexpr double kTiny = 1e-280;
  if (x.high < kTiny) {  // gamma(x) = 1 / x
    const GammaPair pair = LanczosPair(c, x.high * 1e100);
    return {pair.mantissa, pair.exponent + 100.0};
  }
  return PairOf((x - 0.5) * (Log(x + (kG - 0.5)) - 1.0), LanczosSum<Wide>(c, x.high));
}

GammaPair AnyPair(const Lanczos& c, DoubleDouble x) {
  if (x.high > 0.0) return LanczosPair(c, x);
  if (std::trunc(x.high) == x.high && x.low == 0.0) return {kNoNumber, 0.0};
  // DLMF 5.5.3: gamma(x) = pi / (sin(pi x) gamma(1 - x)).
  const GammaPair mirrored = LanczosPair(c, -x + 1.0);
  const double nearest = std::round(x.high);
  const Wide rest = static_cast<Wide>(x.high - nearest) + static_cast<Wide>(x.low);
  const Wide sine = std::sin(kWidePi * (IsOddNumber(nearest) ? -rest : rest));
  return Normalised(kWidePi / (mirrored.mantissa * sine), -mirrored.exponent);
}

constexpr std::array kFunctions = {
    Special<Gamma>("gamma", 47), Special<GammaLn>("gammaln", 48), Special<Digamma>("digamma", 49),
    Special<Digamma>("psi", 49), Special<Beta>("beta", 50),
};

}  // namespace

Wide SinPi(double x) {
  const double nearest = std::round(x);
  const double rest = x - nearest;
  return std::sin(kWidePi * static_cast<Wide>(IsOddNumber(nearest) ? -rest : rest));
}

GammaPair GammaPairOf(DoubleDouble x) { return AnyPair(kFitted, x); }

GammaPair ExpPairOf(DoubleDouble x) { return PairOf(x, 1.0L); }

GammaPair operator*(GammaPair a, GammaPair b) {
  return {a.mantissa * b.mantissa, a.exponent + b.exponent};
}

GammaPair operator/(GammaPair a, GammaPair b) {
  return {a.mantissa / b.mantissa, a.exponent - b.exponent};
}

Wide WideJoin(GammaPair pair) {
  if (std::abs(pair.exponent) <= kMostDecimals) {
    return TimesPowerOfTen(pair.mantissa, pair.exponent);
  }
  if (std::abs(pair.exponent) > 2.0 * kMostDecimals) {
    return pair.mantissa * (pair.exponent < 0.0 ? 0.0L : std::numeric_limits<Wide>::infinity());
  }
  const double most = std::copysign(double{kMostDecimals}, pair.exponent);
  return TimesPowerOfTen(TimesPowerOfTen(pair.mantissa, pair.exponent - most), most);
}

// The gamma function. Domain: all but 0, -1, -2, ...; finite up to 171.6. Method: Lanczos' series
// with g = 4.7421875 and 15 terms (Lanczos, SIAM J. Numer. Anal. B 1, 1964), the power as a decimal
// logarithm; reflection below 0 (DLMF 5.5.3). Error: measured up to 3.0e-15 relative.
double Gamma(double x) { return Join(AnyPair(kDefining, x)); }

// ln(gamma(x)). Domain: where gamma(x) > 0. Method: from the same pair; above 0 its logarithm
// without the way through the mantissa's power. Error: measured up to 1.9e-14 of the value or, near
// zeros, of 0.1.
double GammaLn(double x) {
  if (x > 0.0) {
    if (x < 1e-280) return -std::log(x);
    const double power = (x - 0.5) * (std::log(x + (kG - 0.5)) - 1.0);
    return power + std::log(LanczosSum<double>(kDefining, x));
  }
  const GammaPair pair = AnyPair(kDefining, x);
  return pair.exponent * kLn10.high + std::log(static_cast<double>(pair.mantissa));
}

// gamma'(x) / gamma(x). Domain: all but 0, -1, -2, ... Method: raised to 8 by recurrence (DLMF
// 5.5.2), there the asymptotic series (Abramowitz & Stegun 6.3.18); reflection below 0 (5.5.4).
// Error: measured up to 1.1e-16 of the value or, near zeros, of 0.1.
double Digamma(double x) {
  if (x <= 0.0 && IsWholeNumber(x)) return kNoNumber;
  Wide result = 0.0L;
  Wide z = x;
  if (x < 0.0) {
    const Wide rest = x - std::round(x);
    result = std::abs(rest) == 0.5L ? 0.0L : -kWidePi / std::tan(kWidePi * rest);
    z = 1.0L - z;
  }
  Wide upper = 0.0L;  // upper / lower is the sum of the 1/z
  Wide lower = 1.0L;
  for (; z < 8.0L; z += 1.0L) {
    upper = upper * z + lower;
    lower *= z;
  }
  const auto inverse = static_cast<double>(1.0L / z);
  const double square = inverse * inverse;
  double series = 0.0;
  for (std::size_t k = kDigammaTerms.size(); k > 0; --k) {
    series = (series + kDigammaTerms[k - 1]) * square;
  }
  result += std::log(z) - upper / lower - static_cast<Wide>(series + 0.5 * inverse);
  return static_cast<double>(result);
}

// gamma(a) gamma(b) / gamma(a + b). Domain: all from -1e9 on but the poles of the two upper gammas.
// Method: the pairs, joined at the end; Stirling's form once an argument is large (densities.h),
// where the exponents of the pairs would take the digits. Error: measured up to 3.0e-16 relative.
double Beta(double a, double b) {
  const DoubleDouble sum = SumOf(a, b);
  if (IsLargeBeta(a, b)) return LargeBeta(a, b);
  if (std::fmin(a, b) < kLeastOfBeta) return kNoNumber;
  const GammaPair upper = GammaPairOf(a) * GammaPairOf(b);
  if (sum.high <= 0.0 && std::trunc(sum.high) == sum.high && sum.low == 0.0)
    return static_cast<double>(upper.mantissa * 0.0L);
  return Join(upper / GammaPairOf(sum));
}

FunctionFamily GammaFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

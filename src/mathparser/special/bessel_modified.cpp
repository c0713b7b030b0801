#include <algorithm>
#include <array>

#include "mathparser/special/bessel.h"
#include "mathparser/special/decaying_integral.h"

namespace zentab::mathparser {
namespace {

constexpr double kAsymptoticStart = 20.0;
constexpr double kSeriesEndOfK = 2.0;
constexpr double kOverflow = 720.0;  // I_n overflows from 714 on for n up to 1, later beyond

// The expansion (Abramowitz & Stegun 9.7.1 with sign -1, 9.7.2 with sign +1); its terms are small
// beside the first, 1, so that doubles do.
Wide ExpansionOf(int order, double x, double sign) {
  const double mu = order == 0 ? 0.0 : 4.0;
  const double eighth = sign * 0.125 / x;
  double term = 1.0;
  double sum = 0.0;
  for (int k = 1; k < 40; ++k) {
    const double odd = 2.0 * k - 1.0;
    const double next = term * (mu - odd * odd) * eighth / k;
    if (std::abs(next) >= std::abs(term)) break;
    term = next;
    sum += term;
    if (std::abs(term) < 1e-18) break;
  }
  return 1.0L + static_cast<Wide>(sum);
}

// 1 / (k! (k + order)!).
constexpr std::size_t kSeriesTerms = 42;
template <int kOrder>
constexpr std::array<Wide, kSeriesTerms> MakeSeries() {
  std::array<Wide, kSeriesTerms> terms{};
  Wide term = 1.0L;
  for (std::size_t k = 0; k < kSeriesTerms; ++k) {
    terms[k] = term;
    term /= static_cast<Wide>((k + 1) * (k + 1 + kOrder));
  }
  return terms;
}
constexpr std::array<std::array<Wide, kSeriesTerms>, 2> kSeries = {MakeSeries<0>(),
                                                                   MakeSeries<1>()};

Wide LowOrderI(int order, double x) {
  if (x >= kAsymptoticStart) {
    const Wide root = std::sqrt(2.0L * kWidePi * static_cast<Wide>(x));
    // The power itself may overflow where I does not, its half where a high order does not.
    const Wide half =
        x < 1400.0 ? static_cast<Wide>(std::exp(0.5 * x)) : std::exp(0.5L * static_cast<Wide>(x));
    return half * (ExpansionOf(order, x, -1.0) / root) * half;
  }
  const std::array<Wide, kSeriesTerms>& terms = kSeries[static_cast<std::size_t>(order)];
  const Wide half = 0.5L * static_cast<Wide>(x);
  const Wide square = half * half;
  // As many terms as it takes to 1e-19, fitted from above.
  Wide sum = 0.0L;
  for (auto k = static_cast<std::size_t>(10.0 + x * (2.3 - 0.04 * x)); k > 0; --k) {
    sum = sum * square + terms[k - 1];
  }
  return order == 0 ? sum : sum * half;
}

// The same times (H_k + H_(k + order)) / 2 with the harmonic numbers H.
constexpr std::size_t kTermsOfK = 16;
template <int kOrder>
constexpr std::array<Wide, kTermsOfK> MakeHarmonicSeries() {
  std::array<Wide, kTermsOfK> terms{};
  Wide harmonics = 0.5L * kOrder;
  for (std::size_t k = 0; k < kTermsOfK; ++k) {
    terms[k] = kSeries[kOrder][k] * harmonics;
    harmonics += 0.5L / static_cast<Wide>(k + 1) + 0.5L / static_cast<Wide>(k + 1 + kOrder);
  }
  return terms;
}
constexpr std::array<std::array<Wide, kTermsOfK>, 2> kHarmonicSeries = {MakeHarmonicSeries<0>(),
                                                                        MakeHarmonicSeries<1>()};

// Power series for x <= 2 (Abramowitz & Stegun 9.6.13 and 9.6.11) of order 0 or 1.
Wide SeriesOfK(int order, double x) {
  const auto row = static_cast<std::size_t>(order);
  const Wide half = static_cast<Wide>(x) / 2.0L;
  const Wide square = half * half;
  Wide first = 0.0L;
  Wide second = 0.0L;
  for (std::size_t k = kTermsOfK; k > 0; --k) {
    first = first * square + kSeries[row][k - 1];
    second = second * square + kHarmonicSeries[row][k - 1];
  }
  const Wide sum = (std::log(half) + kWideEuler) * first - second;
  return order == 0 ? -sum : sum * half + 0.5L / half;
}

// e^x K_n(x) for x > 2.
Wide ScaledLowOrderK(int order, double x) {
  if (x < kAsymptoticStart) return static_cast<Wide>(ScaledBesselK(order, x));
  return std::sqrt(kWidePi / (2.0L * static_cast<Wide>(x))) * ExpansionOf(order, x, 1.0);
}

Wide LowOrderK(int order, double x) {
  if (x <= kSeriesEndOfK) return SeriesOfK(order, x);
  if (x > kOverflow + 40.0) return 0.0L;
  const Wide decay = x < 700.0 ? static_cast<Wide>(std::exp(-x)) : std::exp(-static_cast<Wide>(x));
  return ScaledLowOrderK(order, x) * decay;
}

// I_n for n >= 2 by the recurrence downwards, scaled by I_0 (Abramowitz & Stegun 9.12).
double HighOrderI(double n, double x) {
  if (n > x && DecayInDigits(n, x) - x / 2.3 > 400.0) return 0.0;
  // Upwards a solution that is none grows until it covers what is asked for.
  const Wide twoOverX = 2.0L / static_cast<Wide>(x);
  double start = n;
  Wide before = 0.0L;
  for (Wide growth = 1.0L; growth < 1e19L; start += 1.0) {
    const Wide next = before + static_cast<Wide>(start) * twoOverX * growth;
    before = growth;
    growth = next;
  }
  Wide above = 0.0L, here = 1e-4000L, atOrder = 0.0L;
  if constexpr (std::numeric_limits<Wide>::max_exponent10 < 4000) here = 1e-300L;
  for (double k = start; k > 0.0; k -= 1.0) {
    const Wide below = above + static_cast<Wide>(k) * twoOverX * here;
    if (k == n) atOrder = here;
    above = here;
    here = below;
  }
  return static_cast<double>(atOrder / here * LowOrderI(0, x));
}

// I_n(x). Domain: all x until it overflows, near 714 for low orders and from 2880 on for all; whole
// |n| <= 50000. Method: power series up to
// 20 (Abramowitz & Stegun 9.6.10), asymptotic expansion beyond (9.7.1); orders above 1 by the
// recurrence downwards. Error: measured up to 2.6e-16 relative.
double BesselI(double x, double n) {
  if (!IsWholeNumber(n) || std::abs(n) > kLargestOrder) return kNoNumber;
  const double order = std::abs(n);
  const double size = std::abs(x);
  if (size > kOverflow * 4.0) return kNoNumber;
  if (size == 0.0) return order == 0.0 ? 1.0 : 0.0;
  const double value = order <= 1.0 ? static_cast<double>(LowOrderI(static_cast<int>(order), size))
                                    : HighOrderI(order, size);
  return x < 0.0 && IsOddNumber(n) ? -value : value;
}

// K_n(x). Domain: x > 0, whole |n| <= 50000. Method: power series up to 2 (Abramowitz & Stegun
// 9.6.13), the trapezoidal rule on its integral (9.6.24) up to 20, asymptotic expansion beyond
// (9.7.2); orders above 1 by the recurrence upwards. Error:
// measured up to 2.0e-16 relative for n up to 100, 8.1e-16 at 50000.
double BesselK(double x, double n) {
  if (x <= 0.0 || !IsWholeNumber(n) || std::abs(n) > kLargestOrder) return kNoNumber;
  const double order = std::abs(n);
  if (order <= 1.0) return static_cast<double>(LowOrderK(static_cast<int>(order), x));
  if (x > 1e8) return 0.0;
  // Scaled by e^x, whose inverse underflows before a high order does; where the scaled one would
  // overflow in turn, the scale is taken back piece by piece.
  const bool isScaled = x > 600.0;
  Wide before = isScaled ? ScaledLowOrderK(0, x) : LowOrderK(0, x);
  Wide here = isScaled ? ScaledLowOrderK(1, x) : LowOrderK(1, x);
  const Wide twoOverX = 2.0L / static_cast<Wide>(x);
  Wide power = isScaled ? static_cast<Wide>(x) : 0.0L;  // what is left of the scale
  for (double k = 1.0; k < order && std::isfinite(here); k += 1.0) {
    const Wide next = before + static_cast<Wide>(k) * twoOverX * here;
    before = here;
    here = next;
    if (power > 0.0L && here > 1e200L) {
      const Wide part = std::min(power, 460.0L);
      const Wide factor = std::exp(-part);
      before *= factor;
      here *= factor;
      power -= part;
    }
  }
  if (!std::isfinite(here)) return kNoNumber;
  return static_cast<double>(std::exp(-power) * here);
}

double I0(double x) { return BesselI(x, 0.0); }
double K0(double x) { return BesselK(x, 0.0); }

constexpr std::array kFunctions = {Special<I0>("i0", 92), Special<K0>("k0", 91),
                                   Special<BesselI>("besseli", 87),
                                   Special<BesselK>("besselk", 88)};

// The nodes j / 6.5 of the trapezoidal rule on K_nu: cosh(t) - 1 at each.
constexpr Wide kStep = 1.0L / 6.5L;
constexpr std::size_t kNodes = 30;

}  // namespace

double ScaledBesselK(double nu, double x) {
  static const std::array<double, kNodes> kRise = [] {
    std::array<double, kNodes> rise{};
    for (std::size_t j = 0; j < kNodes; ++j) {
      const Wide half = std::sinh(0.5L * kStep * static_cast<Wide>(j + 1));
      rise[j] = static_cast<double>(2.0L * half * half);
    }
    return rise;
  }();
  Wide sum = 0.5L;
  for (std::size_t j = 0; j < kNodes; ++j) {
    const double exponent = x * kRise[j];
    if (exponent > 42.0) break;
    const double power = std::exp(-exponent);
    if (nu == 0.0) {
      sum += static_cast<Wide>(power);
    } else if (nu == 1.0) {
      sum += static_cast<Wide>(power + power * kRise[j]);
    } else {
      const auto t = static_cast<double>(kStep * static_cast<Wide>(j + 1));
      sum += static_cast<Wide>(power * std::cosh(nu * t));
    }
  }
  return static_cast<double>(sum * kStep);
}

FunctionFamily ModifiedBesselFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

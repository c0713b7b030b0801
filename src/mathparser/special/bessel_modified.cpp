#include <algorithm>
#include <array>
#include <numbers>

#include "mathparser/special/bessel.h"
#include "mathparser/special/decaying_integral.h"

namespace zentab::mathparser {
namespace {

constexpr double kAsymptoticStart = 20.0;
constexpr double kSeriesEndOfK = 2.0;
constexpr double kOverflow = 720.0;  // I_n overflows from 714 on for n up to 1, later beyond

// The terms of the expansion one after the other (Abramowitz & Stegun 9.7.1 with sign -1, 9.7.2
// with sign +1).
double ExpansionOf(int order, double x, double sign) {
  const double mu = order == 0 ? 0.0 : 4.0;
  const double eighth = sign * 0.125 / x;
  double term = 1.0;
  double sum = 1.0;
  for (int k = 1; k < 40; ++k) {
    const double odd = 2.0 * k - 1.0;
    const double next = term * (mu - odd * odd) * eighth / k;
    if (std::abs(next) >= std::abs(term)) break;
    term = next;
    sum += term;
    if (std::abs(term) < 1e-18) break;
  }
  return sum;
}

Wide LowOrderI(int order, double x) {
  if (x >= kAsymptoticStart) {
    const double sum = ExpansionOf(order, x, -1.0) / std::sqrt(2.0 * std::numbers::pi * x);
    return (x < 700.0 ? static_cast<Wide>(std::exp(x)) : std::exp(static_cast<Wide>(x))) *
           static_cast<Wide>(sum);
  }
  const double half = 0.5 * x;
  const double square = half * half;
  double term = order == 0 ? 1.0 : half;
  double sum = term;
  for (int k = 1; k < 80; ++k) {
    term *= square / (static_cast<double>(k) * (k + order));
    sum += term;
    if (term < 1e-17 * sum) break;
  }
  return sum;
}

// Power series for x <= 2 (Abramowitz & Stegun 9.6.13 and 9.6.11) of order 0 or 1.
double SeriesOfK(int order, double x) {
  const Wide half = static_cast<Wide>(x) / 2.0L;
  const Wide square = half * half;
  const Wide logarithm = std::log(half) + kWideEuler;
  const Wide nu = order;
  Wide term = order == 0 ? 1.0L : half;
  Wide harmonics = nu;
  Wide sum = term * (logarithm - 0.5L * harmonics);
  for (Wide k = 1.0L; k < 30.0L; k += 1.0L) {
    const Wide next = 1.0L / (k * (k + nu));
    term *= square * next;
    harmonics += (2.0L * k + nu) * next;
    const Wide change = term * (logarithm - 0.5L * harmonics);
    sum += change;
    if (std::abs(change) < 1e-20L * std::abs(sum)) break;
  }
  return static_cast<double>(order == 0 ? -sum : sum + 0.5L / half);
}

double LowOrderK(int order, double x) {
  if (x <= kSeriesEndOfK) return SeriesOfK(order, x);
  const double decay =
      x > kOverflow + 40.0 ? 0.0 : static_cast<double>(std::exp(-static_cast<Wide>(x)));
  if (x < kAsymptoticStart) return ScaledBesselK(order, x) * decay;
  return std::sqrt(std::numbers::pi / (2.0 * x)) * ExpansionOf(order, x, 1.0) * decay;
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

// I_n(x). Domain: all x until it overflows near 714, whole |n| <= 50000. Method: power series up to
// 20 (Abramowitz & Stegun 9.6.10), asymptotic expansion beyond (9.7.1); orders above 1 by the
// recurrence downwards. Error: measured up to 1.6e-15 relative.
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
// (9.7.2); orders above 1 by the recurrence upwards. Error: measured up to 1.9e-15 relative.
double BesselK(double x, double n) {
  if (x <= 0.0 || !IsWholeNumber(n) || std::abs(n) > kLargestOrder) return kNoNumber;
  const double order = std::abs(n);
  if (order <= 1.0) return LowOrderK(static_cast<int>(order), x);
  double before = LowOrderK(0, x);
  double here = LowOrderK(1, x);
  if (x > 600.0) {  // scaled by e^x, whose inverse underflows before a high order does
    const double root = std::sqrt(std::numbers::pi / (2.0 * x));
    before = root * ExpansionOf(0, x, 1.0);
    here = root * ExpansionOf(1, x, 1.0);
    if (x > 1e8) return 0.0;
  }
  for (double k = 1.0; k < order && std::isfinite(here); k += 1.0) {
    const double next = before + 2.0 * k / x * here;
    before = here;
    here = next;
  }
  if (x > 600.0) {
    if (!std::isfinite(here)) return kNoNumber;
    return static_cast<double>(std::exp(-static_cast<Wide>(x)) * static_cast<Wide>(here));
  }
  return here;
}

double I0(double x) { return BesselI(x, 0.0); }
double K0(double x) { return BesselK(x, 0.0); }

constexpr std::array kFunctions = {Special<I0>("i0", 92), Special<K0>("k0", 91),
                                   Special<BesselI>("besseli", 87),
                                   Special<BesselK>("besselk", 88)};

// The nodes j / 6.5 of the trapezoidal rule on K_nu: cosh(t) - 1 at each.
constexpr double kStep = 1.0 / 6.5;
constexpr std::size_t kNodes = 30;

}  // namespace

double ScaledBesselK(double nu, double x) {
  static const std::array<double, kNodes> kRise = [] {
    std::array<double, kNodes> rise{};
    for (std::size_t j = 0; j < kNodes; ++j) {
      const double half = std::sinh(0.5 * kStep * static_cast<double>(j + 1));
      rise[j] = 2.0 * half * half;
    }
    return rise;
  }();
  double sum = 0.5;
  for (std::size_t j = 0; j < kNodes; ++j) {
    const double exponent = x * kRise[j];
    if (exponent > 42.0) break;
    const double t = kStep * static_cast<double>(j + 1);
    const double weight = nu == 0.0 ? 1.0 : nu == 1.0 ? 1.0 + kRise[j] : std::cosh(nu * t);
    sum += std::exp(-exponent) * weight;
  }
  return sum * kStep;
}

FunctionFamily ModifiedBesselFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

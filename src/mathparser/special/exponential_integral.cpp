#include <array>

#include "mathparser/special/continued_fraction.h"

namespace zentab::mathparser {
namespace {

// e^-x, also where it is denormal.
double Decay(double x) { return x > 760.0 ? 0.0 : std::exp(-x); }

// E_n(x) for x > 1 (Abramowitz & Stegun 5.1.22 in its even form).
double Fraction(double order, double x) {
  const Wide n = order;
  Wide b = static_cast<Wide>(x) + n;
  ContinuedFraction fraction(b);
  for (int step = 1; step < 200 && !fraction.IsSettled(); ++step) {
    const Wide i = step;
    b += 2.0L;
    fraction.Take(-i * (n - 1.0L + i), b);
  }
  return static_cast<double>(fraction.Inverse() * static_cast<Wide>(Decay(x)));
}

// 1 / (k k!) from k = 1 on.
constexpr std::size_t kSeriesTerms = 112;
constexpr std::array<Wide, kSeriesTerms> kSeries = [] {
  std::array<Wide, kSeriesTerms> terms{};
  Wide factorial = 1.0L;
  for (std::size_t k = 1; k <= kSeriesTerms; ++k) {
    factorial *= static_cast<Wide>(k);
    terms[k - 1] = 1.0L / factorial / static_cast<Wide>(k);
  }
  return terms;
}();

// E_n(x) for 0 < x <= 1 and n >= 1 (Abramowitz & Stegun 5.1.12).
double Series(double n, double x) {
  const Wide wide = x;
  Wide power = 1.0L;  // (-x)^m / m!
  Wide sum = 0.0L;
  for (double m = 0.0; m < 60.0; m += 1.0) {
    if (m > 0.0) power *= -wide / static_cast<Wide>(m);
    if (m == n - 1.0) {
      Wide psi = -kWideEuler;
      for (Wide k = 1.0L; k < static_cast<Wide>(n); k += 1.0L) psi += 1.0L / k;
      sum += power * (psi - std::log(wide));
    } else {
      sum -= power / static_cast<Wide>(m - n + 1.0);
      if (std::abs(power) < 1e-21L && m > n - 1.0) break;
    }
    if (m > 25.0 && n > m) break;
  }
  return static_cast<double>(sum);
}

// The exponential integral of order n. Domain: whole n >= 0, x > 0; also x = 0 for n >= 2 and x < 0
// for n = 0. Method: power series up to 1 (Abramowitz & Stegun 5.1.12), continued fraction beyond
// (5.1.22). Error: measured up to 1.5e-16 relative.
double Ein(double x, double n) {
  if (n < 0.0 || !IsWholeNumber(n)) return kNoNumber;
  if (n == 0.0) return x == 0.0 ? kNoNumber : (x < 0.0 ? std::exp(-x) : Decay(x)) / x;
  if (x < 0.0) return kNoNumber;
  if (x == 0.0) return n < 2.0 ? kNoNumber : 1.0 / (n - 1.0);
  return x <= 1.0 ? Series(n, x) : Fraction(n, x);
}

// The exponential integral Ei, for x > 0 its principal value. Domain: x != 0, until it overflows
// near 716. Method: power series from -2 to 40 (Abramowitz & Stegun 5.1.10), asymptotic series
// beyond (DLMF 6.12.2); below -2 it is -E_1(-x). Error: measured up to 1.4e-16 of the value or,
// near zeros, of 0.1.
double Ei(double x) {
  if (x == 0.0 || x > 760.0) return kNoNumber;
  if (x < -2.0) return -Ein(-x, 1.0);
  if (x < 40.0) {
    const Wide wide = x;
    const double size = std::abs(x);
    // As many terms as it takes to 1e-18, fitted from above.
    Wide sum = 0.0L;
    for (auto k = static_cast<std::size_t>(21.0 + size * (3.4 - 0.03 * size)); k > 0; --k) {
      sum = (sum + kSeries[k - 1]) * wide;
    }
    return static_cast<double>(kWideEuler + std::log(std::abs(wide)) + sum);
  }
  double term = 1.0;
  double sum = 0.0;
  for (int k = 1; k < x && term > 1e-18; ++k) {
    term *= k / x;
    sum += term;
  }
  const Wide half = std::exp(0.5 * x);  // the power itself may overflow where Ei does not
  return static_cast<double>(half * (1.0L + static_cast<Wide>(sum)) / static_cast<Wide>(x) * half);
}

constexpr std::array kFunctions = {Special<Ei>("ei", 52), Special<Ein>("ein", 80)};

}  // namespace

FunctionFamily ExponentialIntegralFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

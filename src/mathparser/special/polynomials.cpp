#include <array>

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

bool IsDegree(double n) { return n >= 0.0 && n <= kLargestOrder && IsWholeNumber(n); }

// From p_0 = 1 and p_1 up to p_n by p_(k+1) = step(k, p_k, p_(k-1)).
template <class Step>
double Recurrence(double n, Wide first, Step step) {
  if (!IsDegree(n)) return kNoNumber;
  if (n == 0.0) return 1.0;
  Wide before = 1.0L;
  Wide here = first;
  for (Wide k = 1.0L; k < static_cast<Wide>(n) && std::isfinite(here); k += 1.0L) {
    const Wide next = step(k, here, before);
    before = here;
    here = next;
  }
  return static_cast<double>(here);
}

// Legendre's polynomial of degree n. Domain: all x, whole n from 0 to 50000. Method: recurrence
// (Abramowitz & Stegun 22.7.10). Error: measured up to 9.8e-17 of the value or, near zeros, of 0.1.
double Legendre(double argument, double n) {
  const Wide x = argument;
  return Recurrence(n, x, [x](Wide k, Wide p, Wide before) {
    const Wide share = 1.0L / (k + 1.0L);
    return (2.0L - share) * x * p - (1.0L - share) * before;
  });
}

// Laguerre's polynomial of degree n. Domain: all x, whole n from 0 to 50000. Method: recurrence
// (Abramowitz & Stegun 22.7.12). Error: measured up to 9.4e-17 of the value or, near zeros, of 0.1.
double Laguerre(double argument, double n) {
  const Wide x = argument;
  return Recurrence(n, 1.0L - x, [x](Wide k, Wide p, Wide before) {
    const Wide share = 1.0L / (k + 1.0L);
    return (2.0L * k + 1.0L - x) * share * p - (1.0L - share) * before;
  });
}

// The physicists' Hermite polynomial of degree n. Domain: all x, whole n from 0 to 50000. Method:
// recurrence (Abramowitz & Stegun 22.7.13). Error: measured up to 9.7e-17 of the value or, near
// zeros, of 0.1.
double Hermite(double argument, double n) {
  const Wide x = argument;
  return Recurrence(n, 2.0L * x,
                    [x](Wide k, Wide p, Wide before) { return 2.0L * x * p - 2.0L * k * before; });
}

// Chebyshev's polynomial of the first kind of degree n. Domain: all x, whole n from 0 to 50000.
// Method: recurrence (Abramowitz & Stegun 22.7.4); above 200 cos(n arccos x) (22.3.15). Error:
// measured up to 8.6e-17 of the value or, near zeros, of 0.1.
double Chebyshev(double argument, double n) {
  const Wide x = argument;
  if (n > 200.0 && IsDegree(n)) {
    if (std::abs(x) <= 1.0L)
      return static_cast<double>(std::cos(static_cast<Wide>(n) * std::acos(x)));
    const Wide value = std::cosh(static_cast<Wide>(n) * std::acosh(std::abs(x)));
    return static_cast<double>(x < 0.0L && IsOddNumber(n) ? -value : value);
  }
  return Recurrence(n, x, [x](Wide, Wide p, Wide before) { return 2.0L * x * p - before; });
}

constexpr std::array kFunctions = {Special<Legendre>("polyle", 95), Special<Laguerre>("polyla", 96),
                                   Special<Hermite>("polyhe", 97),
                                   Special<Chebyshev>("polych", 98)};

}  // namespace

FunctionFamily PolynomialFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include <algorithm>
#include <array>

#include "mathparser/special/gamma.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr double kSeriesEnd = 0.75;  // beyond, steps towards 1 are quicker than the series
constexpr int kMostTerms = 20000;
constexpr double kLargestForPairs = 1e9;  // of parameters: the pairs keep 14 digits
constexpr Wide kEpsilon = std::numeric_limits<Wide>::epsilon();
constexpr std::string_view kDivergent = "The hypergeometric series is divergent";
constexpr std::string_view kDoubtful = "Warning! You should check the accuracy";

// A value, and how far off it may be at most.
struct Estimate {
  Wide value = 0.0L;
  Wide doubt = 0.0L;
};

bool EndsSeries(double a) { return a <= 0.0 && IsWholeNumber(a); }

// The sum of (a)_n (b)_n / (c)_n x^n / n! (Abramowitz & Stegun 15.1.1).
Estimate Series(Wide a, Wide b, Wide c, Wide x) {
  Wide term = 1.0L;
  Wide sum = 1.0L;
  Wide largest = 1.0L;
  for (int step = 0; step < kMostTerms; ++step) {
    const Wide n = step;
    const Wide upper = (a + n) * (b + n);
    if (upper == 0.0L) return {sum, largest * kEpsilon * (n + 4.0L)};
    const Wide ratio = upper / ((c + n) * (n + 1.0L)) * x;
    term *= ratio;
    sum += term;
    largest = std::max(largest, std::abs(term));
    if (!std::isfinite(term)) break;
    if (std::abs(term) < 1e-22L * std::abs(sum) && std::abs(ratio) < 1.0L) {
      return {sum, largest * kEpsilon * (n + 4.0L)};
    }
  }
  return {sum, std::numeric_limits<Wide>::infinity()};
}

// Taylor's series of the differential equation (Abramowitz & Stegun 15.5.1) carries the function
// and its slope from 1/2 towards 1, every step halving the distance: good whatever c - a - b is.
class Walk {
 public:
  Walk(Wide a, Wide b, Wide c) : a_(a), b_(b), c_(c) {}

  Estimate To(double goal) {
    const Estimate value = Series(a_, b_, c_, 0.5L);
    const Estimate slope = Series(a_ + 1.0L, b_ + 1.0L, c_ + 1.0L, 0.5L);
    value_ = value.value;
    slope_ = a_ * b_ / c_ * slope.value;
    Wide doubt = value.doubt + std::abs(a_ * b_ / c_) * slope.doubt;
    const Wide left = 1.0L - static_cast<Wide>(goal);
    for (Wide rest = 0.5L; rest > left && doubt < 1.0L + std::abs(value_);) {
      const Wide step = std::min<Wide>(0.5L * rest, rest - left);
      const Wide before = std::abs(value_);
      doubt += Step(rest, step);
      // A value that shrinks makes the errors so far weigh more; their size stays.
      doubt *= std::max<Wide>(1.0L, std::abs(value_) / std::max<Wide>(before, 1e-300L));
      rest = rest - step;
    }
    return {value_, doubt};
  }

 private:
  // From x = 1 - rest by h; gives the size of the rounding errors.
  Wide Step(Wide rest, Wide h) {
    const Wide x = 1.0L - rest;
    const Wide product = x * rest;  // x (1 - x)
    const Wide tilt = rest - x;     // its slope
    const Wide sum = a_ + b_ + 1.0L;
    Wide before = value_;  // coefficient n times h^n
    Wide here = slope_ * h;
    Wide total = before + here;
    Wide slope = slope_;
    Wide largest = std::max(std::abs(before), std::abs(here));
    int small = 0;
    for (int step = 0; step < 2000 && small < 3; ++step) {
      const Wide n = step;
      const Wide next = (h * h * (a_ + n) * (b_ + n) * before -
                         h * (n + 1.0L) * (n * tilt + c_ - sum * x) * here) /
                        (product * (n + 2.0L) * (n + 1.0L));
      before = here;
      here = next;
      total += here;
      slope += here * (n + 2.0L) / h;
      largest = std::max(largest, std::abs(here));
      small = std::abs(here) * (n + 2.0L) < 1e-21L * (std::abs(total) + std::abs(slope * h))
                  ? small + 1
                  : 0;
    }
    value_ = total;
    slope_ = slope;
    return 8.0L * kEpsilon * largest;
  }

  Wide a_, b_, c_;
  Wide value_ = 0.0L, slope_ = 0.0L;
};

// The value at 1 (Abramowitz & Stegun 15.1.20).
double AtOne(double a, double b, double c) {
  const DoubleDouble first = SumOf(c, -a);
  const DoubleDouble second = SumOf(c, -b);
  const DoubleDouble rest = first - b;
  const GammaPair lower = GammaPairOf(first) * GammaPairOf(second);
  if (!std::isfinite(lower.mantissa)) return EndsSeries(c) ? kNoNumber : 0.0;
  return Join(GammaPairOf(c) * GammaPairOf(rest) / lower);
}

bool IsGood(const Estimate& estimate) {
  return estimate.doubt <= 1e-13L * std::abs(estimate.value) + 1e-14L;
}

// Pfaff's transformation (Abramowitz & Stegun 15.3.4) leads from (-1, 0) into (0, 1/2).
Estimate Pfaff(Wide x, Wide a, Wide b, Wide c) {
  const Estimate image = Series(a, c - b, c, x / (x - 1.0L));
  const Wide factor = std::exp(-a * std::log1p(-x));
  return {factor * image.value, factor * image.doubt};
}

Estimate Inside(double x, double a, double b, double c) {
  if (x > kSeriesEnd) return Walk(a, b, c).To(x);
  Estimate best;
  best.doubt = std::numeric_limits<Wide>::infinity();
  if (x >= -0.5) best = Series(a, b, c, x);
  // Each may cancel where the others do not.
  if (x < 0.0 && !IsGood(best)) best = Pfaff(x, a, b, c);
  if (x < 0.0 && !IsGood(best)) best = Pfaff(x, b, a, c);
  return best;
}

// Gauss' hypergeometric function. Domain: |x| < 1; x = 1 for c - a - b > 0, x = -1 for c - a - b >
// -1; all x if a or b is 0, -1, -2, ...; c none of these unless the series ends before. Method:
// power series (Abramowitz & Stegun 15.1.1) from -0.5 to 0.75, Pfaff's transformation below
// (15.3.4), Taylor's series of the differential equation above. Error: measured up to 1.1e-15 of
// the value or, near zeros, of 0.1.
double HypGeom(const double* arguments, CallContext& context) {
  const double x = arguments[0];
  const double a = arguments[1];
  const double b = arguments[2];
  const double c = arguments[3];
  const double first = EndsSeries(a) ? a : -std::numeric_limits<double>::infinity();
  const double second = EndsSeries(b) ? b : -std::numeric_limits<double>::infinity();
  const double last = std::max(first, second);
  const bool isPolynomial = std::isfinite(last);
  if (EndsSeries(c) && last < c) return kNoNumber;
  if (x == 0.0) return 1.0;
  Estimate estimate;
  if (isPolynomial) {
    estimate = Series(a, b, c, x);
  } else {
    const double rest = c - a - b;
    const bool converges =
        std::abs(x) < 1.0 || (x == 1.0 && rest > 0.0) || (x == -1.0 && rest > -1.0);
    if (!converges) {
      context.message = kDivergent;
      return kNoNumber;
    }
    if (x == 1.0 && std::abs(a) + std::abs(b) + std::abs(c) < kLargestForPairs)
      return AtOne(a, b, c);
    if (x == 1.0) {
      context.message = kDoubtful;
      return kNoNumber;
    }
    estimate = Inside(x, a, b, c);
  }
  if (!IsGood(estimate)) {
    context.message = kDoubtful;
    return kNoNumber;
  }
  return static_cast<double>(estimate.value);
}

constexpr std::array kFunctions = {FunctionEntry{"hypgeom", 205, 4, HypGeom}};

}  // namespace

FunctionFamily HypergeometricFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

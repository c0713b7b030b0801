#include <algorithm>
#include <array>

#include "mathparser/special/gamma.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr double kSeriesEnd = 0.75;  // beyond, steps towards 1 are quicker than the series
constexpr int kMostTerms = 20000;
constexpr double kLargestForPairs = 1e9;  // of parameters: the pairs keep 14 digits
constexpr Wide kLargestShare = 1e-8L;     // of errors in a value without a warning
constexpr Wide kEpsilon = std::numeric_limits<Wide>::epsilon();
constexpr Wide kUnbounded = std::numeric_limits<Wide>::infinity();
constexpr std::string_view kDivergent = "The hypergeometric series is divergent";
constexpr std::string_view kDoubtful = "Warning! You should check the accuracy";

// A value, and how far off it may be at most.
struct Estimate {
  Wide value = 0.0L;
  Wide doubt = 0.0L;
};

// A parameter as an exact sum: next to a pole of the coefficients what a difference of two others
// rounds away is all that is left of it.
struct Parameter {
  Wide high = 0.0L;
  Wide low = 0.0L;

  // cppcheck-suppress noExplicitConstructor; implicit, as from double to long double
  Parameter(Wide a) : high(a) {}
  Parameter(Wide a, Wide b) : high(a), low(b) {}
  static Parameter Difference(Wide a, Wide b) {
    const Wide difference = a - b;
    const Wide taken = difference - a;
    return {difference, (a - (difference - taken)) - (b + taken)};
  }
  friend Wide operator+(const Parameter& a, Wide n) { return (a.high + n) + a.low; }
};

bool EndsSeries(double a) { return a <= 0.0 && IsWholeNumber(a); }

// The largest size of (upper + m) / (lower + m) for m = 0, 1, ..., lower > 0: it goes straight
// towards 1, or ends at 0.
Wide LargestFactor(Wide upper, Wide lower) {
  const Wide factor = std::abs(upper / lower);
  return upper <= 0.0L && std::trunc(upper) == upper ? factor : std::max(factor, 1.0L);
}

// The sum of (a)_n (b)_n / (c)_n x^n / n! (Abramowitz & Stegun 15.1.1). Small terms may grow again
// while c + n is below 0 or a + n or b + n large, so that it ends only where no later one can.
Estimate Series(const Parameter& a, const Parameter& b, Wide c, Wide x) {
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
    const Wide next = n + 1.0L;
    if (std::abs(term) < 1e-22L * std::abs(sum) && c + next > 0.0L &&
        LargestFactor(a + next, c + next) * LargestFactor(b + next, next + 1.0L) * std::abs(x) <
            1.0L) {
      return {sum, largest * kEpsilon * (n + 4.0L)};
    }
  }
  return {sum, kUnbounded};
}

// Taylor's series of the differential equation (Abramowitz & Stegun 15.5.1) carries the function
// and its slope from 1/2 towards 1, every step halving the distance: good whatever c - a - b is.
// The errors are a solution of the same equation and may grow where the function shrinks, so that
// they are carried along.
class Walk {
 public:
  Walk(Wide a, Wide b, Wide c) : a_(a), b_(b), c_(c) {}

  Estimate To(double goal) {
    const Estimate value = Series(a_, b_, c_, 0.5L);
    const Estimate slope = Series(a_ + 1.0L, b_ + 1.0L, c_ + 1.0L, 0.5L);
    const Wide factor = a_ * b_ / c_;
    Solution function{value.value, factor * slope.value};
    Solution error{value.doubt, std::abs(factor) * slope.doubt};
    const Wide left = 1.0L - static_cast<Wide>(goal);
    for (Wide rest = 0.5L;
         rest > left && std::abs(error.value) < 1.0L + std::abs(function.value);) {
      const Wide step = std::min<Wide>(0.5L * rest, rest - left);
      const Solution rounding = Step(function, rest, step);
      Step(error, rest, step);
      error.value += std::copysign(rounding.value, error.value);
      error.slope += std::copysign(rounding.slope, error.slope);
      rest = rest - step;
    }
    return {function.value, std::abs(error.value)};
  }

 private:
  struct Solution {
    Wide value, slope;
  };

  // From x = 1 - rest by h; gives the size of the rounding errors.
  Solution Step(Solution& solution, Wide rest, Wide h) const {
    const Wide x = 1.0L - rest;
    const Wide product = x * rest;  // x (1 - x)
    const Wide tilt = rest - x;     // its slope
    const Wide sum = a_ + b_ + 1.0L;
    Wide before = solution.value;  // coefficient n times h^n
    Wide here = solution.slope * h;
    Wide total = before + here;
    Wide slope = solution.slope;
    Solution largest{std::max(std::abs(before), std::abs(here)), std::abs(slope)};
    // Until then the parameters may let small terms grow again.
    const Wide enough = std::abs(a_) + std::abs(b_) + std::abs(c_);
    int small = 0;
    for (int step = 0; small < 3; ++step) {
      if (step == 2000) return {kUnbounded, kUnbounded};
      const Wide n = step;
      const Wide next = (h * h * (a_ + n) * (b_ + n) * before -
                         h * (n + 1.0L) * (n * tilt + c_ - sum * x) * here) /
                        (product * (n + 2.0L) * (n + 1.0L));
      before = here;
      here = next;
      const Wide slopeTerm = here * (n + 2.0L) / h;
      total += here;
      slope += slopeTerm;
      largest.value = std::max(largest.value, std::abs(here));
      largest.slope = std::max(largest.slope, std::abs(slopeTerm));
      const Wide negligible = 1e-21L * (std::abs(total) + std::abs(slope * h));
      small = n >= enough && std::abs(slopeTerm) * h <= negligible ? small + 1 : 0;
    }
    solution = {total, slope};
    return {8.0L * kEpsilon * largest.value, 8.0L * kEpsilon * largest.slope};
  }

  Wide a_, b_, c_;
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

// A series times (1 - x)^power. The rounding of the exponent counts as well.
Estimate TimesPower(const Estimate& image, Wide x, Wide power) {
  const Wide exponent = power * std::log1p(-x);
  const Wide factor = std::exp(exponent);
  const Wide value = factor * image.value;
  return {value, factor * image.doubt + 4.0L * kEpsilon * std::abs(exponent * value)};
}

// Pfaff's transformation (Abramowitz & Stegun 15.3.4) leads from (-1, 0) into (0, 1/2).
Estimate Pfaff(Wide x, Wide a, Wide b, Wide c) {
  return TimesPower(Series(a, Parameter::Difference(c, b), c, x / (x - 1.0L)), x, -a);
}

// Euler's (Abramowitz & Stegun 15.3.3) stays where it is.
Estimate Euler(Wide x, Wide a, Wide b, Wide c) {
  return TimesPower(Series(Parameter::Difference(c, a), Parameter::Difference(c, b), c, x), x,
                    Parameter::Difference(c, a) + -b);
}

// Each may cancel where the others do not; what cancels to little must not pass for near a zero
// before the others were tried.
Estimate Inside(double x, double a, double b, double c) {
  const auto isPrecise = [](const Estimate& estimate) {
    return estimate.doubt <= 1e-15L * std::abs(estimate.value);
  };
  Estimate best{0.0L, kUnbounded};
  const auto offer = [&best](const Estimate& other) {
    if (other.doubt < best.doubt) best = other;
  };
  if (x > kSeriesEnd) offer(Walk(a, b, c).To(x));
  if (x >= -0.5 && !isPrecise(best)) offer(Series(a, b, c, x));
  if (x < 0.0 && !isPrecise(best)) offer(Pfaff(x, a, b, c));
  if (x < 0.0 && !isPrecise(best)) offer(Pfaff(x, b, a, c));
  if (x >= -0.5 && !isPrecise(best)) offer(Euler(x, a, b, c));
  return best;
}

// Gauss' hypergeometric function. Domain: |x| < 1; x = 1 for c - a - b > 0, x = -1 for c - a - b >
// -1; all x if a or b is 0, -1, -2, ...; c none of these unless the series ends before. Method:
// power series (Abramowitz & Stegun 15.1.1) from -0.5 to 0.75, Pfaff's transformation below
// (15.3.4), Taylor's series of the differential equation above, Euler's transformation (15.3.3)
// where these cancel. Error: measured up to 1.1e-15 of
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
  // Only a polynomial may be exactly 0; what else is all error is a small value, not a zero.
  const bool hasDigits = isPolynomial || estimate.doubt <= kLargestShare * std::abs(estimate.value);
  if (!hasDigits || !IsGood(estimate)) {
    context.message = kDoubtful;
    return kNoNumber;
  }
  return static_cast<double>(estimate.value);
}

constexpr std::array kFunctions = {FunctionEntry{"hypgeom", 205, 4, HypGeom}};

}  // namespace

FunctionFamily HypergeometricFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include "mathparser/special/incomplete.h"

#include <array>
#include <numbers>

#include "mathparser/special/continued_fraction.h"
#include "mathparser/special/densities.h"
#include "mathparser/special/error_function.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr Wide kEpsilon = 1e-18L;
constexpr int kMostSteps = 25000;
constexpr double kUniformStart = 1e6;  // of a: beyond, series and fraction take ever more steps

// DLMF 8.7.1, good for x < a + 1: as numerator over denominator, without a division a term.
double LowerSeries(double a, double x) {
  constexpr Wide kHuge = 1e100L;
  const Wide wide = x;
  Wide n = a;
  Wide power = 1.0L;
  Wide numerator = 1.0L;
  Wide denominator = 1.0L;
  for (int step = 0; step < kMostSteps; ++step) {
    n += 1.0L;
    power *= wide;
    numerator = numerator * n + power;
    denominator *= n;
    if (power < numerator * kEpsilon) {
      return static_cast<double>(numerator / denominator * PoissonTerm(a, x));
    }
    if (numerator > kHuge) {
      power /= kHuge;
      numerator /= kHuge;
      denominator /= kHuge;
    }
  }
  return kNoNumber;
}

// DLMF 8.9.2 in its even form, good for x >= a + 1.
double UpperFraction(double a, double x) {
  const Wide wide = a;
  Wide b = static_cast<Wide>(x) + 1.0L - wide;
  ContinuedFraction fraction(b);
  for (int step = 1; step < kMostSteps; ++step) {
    const Wide i = step;
    b += 2.0L;
    fraction.Take(i * (wide - i), b);
    if (fraction.IsSettled()) {
      return static_cast<double>(fraction.Inverse() * wide * PoissonTerm(a, x));
    }
  }
  return kNoNumber;
}

// Temme's uniform expansion for a >= 1e6 (DLMF 8.12.3, 8.12.4): half erfc of the distance from the
// mean, and a rest whose coefficients (8.12.14 and the next of a) end where a double does, since
// |eta| < 0.04 unless the power underflows.
double UniformTail(double a, double x, bool isUpper) {
  constexpr std::array kTerms = {-1.0 / 3.0,   1.0 / 12.0,        -2.0 / 135.0, 1.0 / 864.0,
                                 1.0 / 2835.0, -139.0 / 777600.0, 1.0 / 25515.0};
  const DoubleDouble square = Deviance(a, x);  // a eta^2 / 2
  const double side = (x < a) == isUpper ? -1.0 : 1.0;
  if (!(square.high < 750.0)) return side > 0.0 ? 0.0 : 1.0;
  const double size = std::sqrt(std::fmax(square.high, 0.0));
  const DoubleDouble rounded = ProductOf(size, size);
  const double lost = size > 0.0 ? (square - rounded).high / (2.0 * size) : 0.0;
  const double eta = (x < a ? -size : size) * std::sqrt(2.0 / a);
  double series = 0.0;
  for (std::size_t k = kTerms.size(); k > 0; --k) series = series * eta + kTerms[k - 1];
  series += (-1.0 / 540.0 + eta * (-1.0 / 288.0 + eta / 378.0)) / a;
  const double bell = Exp(-square);
  const double rest = bell * series / std::sqrt(2.0 * std::numbers::pi * a);
  return 0.5 * Erfc(side * size) - side * bell * lost * std::numbers::inv_sqrtpi +
         (isUpper ? rest : -rest);
}

// DLMF 8.17.22 over a, its denominators cleared; good for x < (a + 1) / (a + b + 2).
Wide BetaFraction(Wide x, double shapeA, double shapeB) {
  const Wide a = shapeA;
  const Wide b = shapeB;
  ContinuedFraction fraction(a);
  for (int step = 0; step < kMostSteps; ++step) {
    const Wide m = step;
    if (step > 0) fraction.Take(m * (b - m) * x, a + 2.0L * m);
    fraction.Take(-(a + m) * (a + b + m) * x, a + 2.0L * m + 1.0L);
    if (fraction.IsSettled()) return fraction.Inverse();
  }
  return kNoNumber;
}

// DLMF 8.17.7, all terms positive for b < 1; many of them for x near 1, hence Wide.
double BetaSeries(Wide x, Wide a, Wide b) {
  Wide term = 1.0L;
  Wide sum = 1.0L / a;
  for (int step = 1; step < kMostSteps; ++step) {
    const Wide n = step;
    term *= (n - b) / n * x;
    const Wide change = term / (a + n);
    sum += change;
    if (change < sum * kEpsilon * (1.0L - x)) return static_cast<double>(sum);
  }
  return kNoNumber;
}

// The lower incomplete gamma function P(a, x). Domain: 0 < a <= 170, 0 <= x <= 700. Method: power
// series below a + 1 (DLMF 8.7.1), continued fraction above (8.9.2). Error: measured up to 2.7e-16
// relative.
double GammaI(const double* arguments, CallContext& context) {
  const double a = arguments[0];
  const double x = arguments[1];
  if (a > 170.0 || x > 700.0) {
    context.message = "a and/or x too large";
    return kNoNumber;
  }
  return a <= 0.0 || x < 0.0 ? kNoNumber : LowerGamma(a, x);
}

// The incomplete beta function I_x(a, b). Domain: 0 <= x <= 1, a and b > 0. Method: continued
// fraction (DLMF 8.17.22) on the side of the mean where it is quick, times the gamma pairs. Error:
// measured up to 3.7e-16 relative.
double BetaI(double x, double a, double b) {
  if (!(x >= 0.0 && x <= 1.0) || a <= 0.0 || b <= 0.0) return kNoNumber;
  return IncompleteBeta(x, SumOf(1.0, -x), a, b);
}

constexpr std::array kFunctions = {FunctionEntry{"gammai", 94, 2, GammaI},
                                   Special<BetaI>("betai", 206)};

}  // namespace

double LowerGamma(double a, double x) {
  if (x == 0.0) return 0.0;
  if (a >= kUniformStart) return AtMostOne(UniformTail(a, x, false));
  return AtMostOne(x < a + 1.0 ? LowerSeries(a, x) : 1.0 - UpperFraction(a, x));
}

double UpperGamma(double a, double x) {
  if (x == 0.0) return 1.0;
  if (a >= kUniformStart) return AtMostOne(UniformTail(a, x, true));
  return AtMostOne(x < a + 1.0 ? 1.0 - LowerSeries(a, x) : UpperFraction(a, x));
}

double IncompleteBeta(DoubleDouble x, DoubleDouble y, double a, double b) {
  if (x.high <= 0.0) return 0.0;
  if (y.high <= 0.0) return 1.0;
  const Wide term = BetaTerm(a, b, x, y);
  const Wide wideX = static_cast<Wide>(x.high) + static_cast<Wide>(x.low);
  const Wide wideY = static_cast<Wide>(y.high) + static_cast<Wide>(y.low);
  const double mean = (a + 1.0) / (a + b + 2.0);
  const bool isBelow = x.high < mean;
  // The nearer tail is 0, and large shapes would lead its fraction beyond all numbers. Next to the
  // mean it takes more digits to tell which tail that is.
  if (term == 0.0L && (isBelow ? a : b) >= 1.0 && std::abs(x.high - mean) > 1e-12 * mean) {
    return isBelow ? 0.0 : 1.0;
  }
  // Beyond the mean the other tail is quicker, but a small b leaves nothing of its digits.
  if (isBelow || (b < 1.0 && x.high < 0.9)) {
    return AtMostOne(static_cast<double>(term * BetaFraction(wideX, a, b)));
  }
  const auto value = static_cast<double>(1.0L - term * BetaFraction(wideY, b, a));
  if (b >= 1.0 || value > 0.4) return AtMostOne(value);
  return static_cast<double>(term) * Exp(Log(y) * -b) * BetaSeries(wideX, a, b);
}

FunctionFamily IncompleteFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include "mathparser/special/bessel.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "mathparser/special/large_angle.h"

namespace zentab::mathparser {
namespace {

constexpr double kSeriesEnd = 4.0;
constexpr double kHankelStart = 25.0;
constexpr Wide kWideTwoOverPi = 0.63661977236758134307553505349005745L;

enum class Kind { First, Second };

// Power series for x <= 4 (Abramowitz & Stegun 9.1.10 to 9.1.13) of order 0 or 1.
Wide SeriesOf(Kind kind, int order, double x) {
  const Wide half = static_cast<Wide>(x) / 2.0L;
  const Wide square = -half * half;
  const Wide logarithm = kind == Kind::Second ? std::log(half) + kWideEuler : 0.0L;
  const Wide nu = order;
  Wide term = order == 0 ? 1.0L : half;
  Wide harmonics = nu;  // H_k + H_(k + order)
  Wide first = term;
  Wide second = -term * harmonics;
  for (Wide k = 1.0L; k < 40.0L; k += 1.0L) {
    const Wide next = 1.0L / (k * (k + nu));
    term *= square * next;
    harmonics += (2.0L * k + nu) * next;
    first += term;
    second -= term * harmonics;
    if (std::abs(term) * 40.0L < 1e-20L * std::abs(half)) break;
  }
  if (kind == Kind::First) return first;
  const Wide pole = order == 0 ? 0.0L : -1.0L / (half * kWidePi);
  return pole + kWideTwoOverPi * logarithm * first + second / kWidePi;
}

// Recurrence downwards from nothing, scaled by J0 + 2 J2 + 2 J4 + ... = 1 (Miller's method,
// Abramowitz & Stegun 9.12), with Neumann's series for Y (9.1.88 and 9.1.89) on the way.
struct DownwardRun {
  Wide j0 = 0.0L, j1 = 0.0L, atOrder = 0.0L;
  Wide y0Sum = 0.0L, y1Sum = 0.0L;

  DownwardRun(double n, double x, bool wantSecond) {
    const int half = static_cast<int>(std::ceil(StartOrder(n, x) / 2.0));
    const int order = static_cast<int>(n);
    const Wide twoOverX = 2.0L / static_cast<Wide>(x);
    Wide above = 0.0L, here = 1e-100L, total = 0.0L;
    Wide sign = half % 2 == 0 ? 2.0L : -2.0L;
    for (int k = 2 * half; k > 0; k -= 2, sign = -sign) {
      const Wide wide = k;
      const Wide odd = wide * twoOverX * here - above;
      if (k == order) atOrder = here;
      if (k - 1 == order) atOrder = odd;
      total += here;
      if (wantSecond) {
        const Wide weight = sign / wide;
        y0Sum += weight * here;
        y1Sum += weight * (odd - above);
      }
      above = odd;
      here = (wide - 1.0L) * twoOverX * odd - here;
    }
    total = 2.0L * total + here;
    j0 = here / total;
    j1 = above / total;
    atOrder = n == 0.0 ? j0 : atOrder / total;
    y0Sum /= total;
    y1Sum /= total;
  }
};

Wide MiddleOf(Kind kind, int order, double x, const DownwardRun& run) {
  if (kind == Kind::First) return order == 0 ? run.j0 : run.j1;
  const Wide wide = x;
  const Wide logarithm = std::log(wide / 2.0L) + kWideEuler;
  const Wide sum = order == 0 ? logarithm * run.j0 - 2.0L * run.y0Sum
                              : logarithm * run.j1 - run.j0 / wide + run.y1Sum;
  return kWideTwoOverPi * sum;
}

// The sum over k of product(j = 1..k) of (4 nu^2 - (2j - 1)^2) / (8 j x), its signs changing after
// every second term and broken off at the smallest: the even and the odd terms apart
// (DLMF 10.17.1).
template <class Real>
struct HankelSums {
  Real even = 1;
  Real odd = 0;

  HankelSums(int order, Real x) {
    const Real fourNuSquared = order == 0 ? 0 : 4;
    const Real eighth = Real(0.125) / x;
    Real term = 1;
    for (int k = 1; k < 60; ++k) {
      const Real n = 2 * k - 1;
      const Real next = term * (fourNuSquared - n * n) * eighth / static_cast<Real>(k);
      if (std::abs(next) >= std::abs(term)) break;
      term = next;
      if (k % 2 == 1) {
        odd += (k % 4 == 1) ? term : -term;
      } else {
        even += (k % 4 == 2) ? -term : term;
      }
      if (std::abs(term) < std::numeric_limits<Real>::epsilon() / 100) break;
    }
  }
};

// Hankel's expansion for x >= 25 (DLMF 10.17.3, 10.17.4). The phase x - pi/4 (- pi/2) is split by
// the addition theorem, so that a large x keeps its digits.
template <class Real>
Real AsymptoticOf(Kind kind, int order, Real x, Real sine, Real cosine) {
  const HankelSums<Real> sums(order, x);
  const Real phaseCosine = order == 0 ? cosine + sine : sine - cosine;
  const Real phaseSine = order == 0 ? sine - cosine : -sine - cosine;
  const Real size = std::sqrt(static_cast<Real>(1.0L / kWidePi) / x);
  return kind == Kind::First ? size * (phaseCosine * sums.even - phaseSine * sums.odd)
                             : size * (phaseSine * sums.even + phaseCosine * sums.odd);
}

double LowOrder(Kind kind, int order, double x) {
  if (x <= kSeriesEnd) return static_cast<double>(SeriesOf(kind, order, x));
  if (x >= kHankelStart) {
    const auto [sine, cosine] = SineCosineOf(x);
    return AsymptoticOf(kind, order, x, sine, cosine);
  }
  const DownwardRun run(order, x, kind == Kind::Second);
  return static_cast<double>(MiddleOf(kind, order, x, run));
}

// What a recurrence starts from.
struct FirstTwo {
  Wide zero, one;

  FirstTwo(Kind kind, double x) {
    if (x <= kSeriesEnd) {
      zero = SeriesOf(kind, 0, x);
      one = SeriesOf(kind, 1, x);
    } else if (x < kHankelStart) {
      const DownwardRun run(1.0, x, kind == Kind::Second);
      zero = MiddleOf(kind, 0, x, run);
      one = MiddleOf(kind, 1, x, run);
    } else {
      const Wide wide = x;
      const Wide sine = std::sin(wide);
      const Wide cosine = std::cos(wide);
      zero = AsymptoticOf(kind, 0, wide, sine, cosine);
      one = AsymptoticOf(kind, 1, wide, sine, cosine);
    }
  }
};

// J_(n+1) = (2n / x) J_n - J_(n-1), stable for J up to n = x and for Y always.
double Upwards(Kind kind, double n, double x) {
  auto [before, here] = FirstTwo(kind, x);
  const Wide twoOverX = 2.0L / static_cast<Wide>(x);
  for (double k = 1.0; k < n && std::isfinite(here); k += 1.0) {
    const Wide next = static_cast<Wide>(k) * twoOverX * here - before;
    before = here;
    here = next;
  }
  return static_cast<double>(here);
}

double FirstKind(double n, double x) {
  if (n <= 1.0) return LowOrder(Kind::First, static_cast<int>(n), x);
  if (x == 0.0) return 0.0;
  if (x >= kHankelStart && n <= x) return Upwards(Kind::First, n, x);
  if (n > x && DecayInDigits(n, x) > 400.0) return 0.0;
  const DownwardRun run(n, x, false);
  if (x < kHankelStart) return static_cast<double>(run.atOrder);
  // The sum that scales the run cancels for large x; J0 and J1 are at hand.
  const FirstTwo low(Kind::First, x);
  const Wide scale = std::abs(run.j0) > std::abs(run.j1) ? low.zero / run.j0 : low.one / run.j1;
  return static_cast<double>(run.atOrder * scale);
}

// J_n(x). Domain: all x, whole |n| <= 50000. Method: power series up to 4 (Abramowitz & Stegun
// 9.1.10), Miller's recurrence downwards up to 25 and for n > x, Hankel's expansion beyond (DLMF
// 10.17.3) with the recurrence upwards while n <= x. Error: measured up to 2.4e-16 of the value or,
// near zeros, of 0.1.
double BesselJ(double x, double n) {
  if (!IsWholeNumber(n) || std::abs(n) > kLargestOrder) return kNoNumber;
  const double value = FirstKind(std::abs(n), std::abs(x));
  return (x < 0.0) != (n < 0.0) && IsOddNumber(n) ? -value : value;
}

// Y_n(x). Domain: x > 0, whole |n| <= 50000. Method: for n = 0 and 1 power series up to 4
// (Abramowitz & Stegun 9.1.11), Neumann's series up to 25 (9.1.88), Hankel's expansion beyond (DLMF
// 10.17.4); higher orders by the recurrence upwards. Error: measured up to 2.1e-16 of the value or,
// near zeros, of 0.1.
double BesselY(double x, double n) {
  if (x <= 0.0 || !IsWholeNumber(n) || std::abs(n) > kLargestOrder) return kNoNumber;
  const double order = std::abs(n);
  const double sign = n < 0.0 && IsOddNumber(n) ? -1.0 : 1.0;
  if (order > 1.0) return sign * Upwards(Kind::Second, order, x);
  return sign * LowOrder(Kind::Second, static_cast<int>(order), x);
}

double J0(double x) { return FirstKind(0.0, std::abs(x)); }
double Y0(double x) { return BesselY(x, 0.0); }

constexpr std::array kFunctions = {Special<J0>("j0", 89), Special<Y0>("y0", 90),
                                   Special<BesselJ>("besselj", 85),
                                   Special<BesselY>("bessely", 86)};

}  // namespace

double DecayInDigits(double n, double x) {
  return 0.5 * std::log10(6.28 * n) - n * std::log10(1.36 * x / n);
}

double StartOrder(double n, double x) {
  if (n <= 1.0 && x <= kHankelStart) return 26.0 + 1.7 * x;
  double start = std::floor(1.1 * std::max(n, x)) + 5.0;
  const double wanted = 20.0 + (n > x ? std::max(0.0, DecayInDigits(n, x)) : 0.0);
  // The decay bends upwards, so Newton's step from below goes too far; the half of it comes first.
  for (const double share : {0.5, 1.0}) {
    const double decay = DecayInDigits(start, x);
    if (decay >= wanted) break;
    const double slope = std::numbers::log10e - std::log10(1.36 * x / start);
    start += std::ceil(share * (wanted - decay) / slope);
  }
  return start;
}

FunctionFamily BesselFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include <array>
#include <numbers>

#include "mathparser/special/decaying_integral.h"
#include "mathparser/special/double_double.h"
#include "mathparser/special/large_angle.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr Wide kAiAtZero = 0.355028053887817239260063186004183177L;
constexpr Wide kMinusSlopeAtZero = 0.258819403792806798405183560189203963L;
constexpr Wide kRootOfThree = 1.73205080756887729352744634150587237L;
constexpr double kFarthest = -1e10;  // beyond, the phase loses its digits

// The power series cancel more and more below 0; Taylor's series about -4 and -8 go on.
constexpr double kSeriesEnd = -2.5;
constexpr double kNearEnd = -6.0;
constexpr double kFarEnd = -9.75;

enum class Which { Ai, Bi };

// The solution of y'' = x y about a point from its value and slope there (DLMF 9.2.1): term n+2
// follows from the terms n and n-1.
Wide TaylorAbout(Wide centre, Wide value, Wide slope, Wide h) {
  Wide before = 0.0L, term = value, next = slope * h, sum = value + next;
  const Wide square = h * h;
  for (Wide n = 0.0L; n < 120.0L; n += 1.0L) {
    const Wide after = square * (centre * term + h * before) / ((n + 1.0L) * (n + 2.0L));
    before = term;
    term = next;
    next = after;
    sum += after;
    if (std::abs(after) + std::abs(next) + std::abs(term) < 1e-21L * std::abs(sum)) break;
  }
  return sum;
}

// Ai = c1 f - c2 g, Bi = sqrt(3) (c1 f + c2 g) by the two power series (DLMF 9.4.1, 9.4.3).
Wide Maclaurin(Which which, Wide x) {
  const Wide cube = x * x * x;
  Wide termF = kAiAtZero, termG = kMinusSlopeAtZero * x;
  Wide f = termF, g = termG;
  for (Wide k = 3.0L; k < 300.0L; k += 3.0L) {
    termF *= cube / ((k - 1.0L) * k);
    termG *= cube / (k * (k + 1.0L));
    f += termF;
    g += termG;
    if (std::abs(termF) + std::abs(termG) < 1e-21L * (std::abs(f) + std::abs(g))) break;
  }
  return which == Which::Ai ? f - g : kRootOfThree * (f + g);
}

// The sums of u_k / zeta^k, the even ones but for the first, 1, and the odd ones (DLMF 9.7.2); sign
// -1 makes them alternate each for itself.
struct Sums {
  double even = 0.0;
  double odd = 0.0;
  Sums(double zeta, double sign) {
    double term = 1.0;
    for (int k = 1; k < 40; ++k) {
      const double n = k;
      const double next = term * (6.0 * n - 5.0) * (6.0 * n - 3.0) * (6.0 * n - 1.0) /
                          (216.0 * n * (2.0 * n - 1.0) * zeta);
      if (std::abs(next) >= std::abs(term)) break;
      term = next;
      (k % 2 == 0 ? even : odd) += (k % 4 < 2) ? term : sign * term;
      if (term < 1e-18) break;
    }
  }
};

// x^(-1/4) / sqrt(pi).
Wide SizeOf(double x) {
  return 0.564189583547756286948079451560772586L / std::sqrt(std::sqrt(static_cast<Wide>(x)));
}

Wide ZetaOf(Wide size) { return 2.0L / 3.0L * size * std::sqrt(size); }

// 2/3 size^(3/2) to the digits that a phase needs.
DoubleDouble PreciseZetaOf(double size) {
  constexpr DoubleDouble kTwoThirds{0.6666666666666666, 3.700743415417188e-17};
  const double root = std::sqrt(size);
  const DoubleDouble square = ProductOf(root, root);
  const DoubleDouble preciseRoot{root, (size - square.high - square.low) / (2.0 * root)};
  return preciseRoot * size * kTwoThirds;
}

// DLMF 9.7.9 and 9.7.11 for x <= -9.5; the phase zeta - pi/4 by the addition theorem.
double Oscillating(Which which, double x) {
  if (x < kFarthest) return kNoNumber;
  const DoubleDouble zeta = PreciseZetaOf(-x);
  const Sums sums(zeta.high, -1.0);
  const double lowSine = std::sin(zeta.low);
  const double lowCosine = std::cos(zeta.low);
  const SineCosine high = SineCosineOf(zeta.high);
  const double sine = high.sine * lowCosine + high.cosine * lowSine;
  const double cosine = high.cosine * lowCosine - high.sine * lowSine;
  const double difference = sine - cosine;
  const double sum = sine + cosine;
  const double even = 1.0 + sums.even;
  const double size = std::numbers::inv_sqrtpi / std::numbers::sqrt2 / std::sqrt(std::sqrt(-x));
  return size * (which == Which::Ai ? sum * even + difference * sums.odd
                                    : sum * sums.odd - difference * even);
}

// A point with the values and slopes there, by the series of 9.4 at 60 digits.
struct Centre {
  Wide x;
  std::array<Wide, 2> value;  // of Ai and Bi
  std::array<Wide, 2> slope;
};
constexpr Centre kNearCentre = {
    -4.0L,
    {-0.0702655329492895150990843116318031164L, 0.392234705706999289554491827646843483L},
    {-0.790628575368581380296454445827940101L, -0.116670567438340893679567242976664598L}};
constexpr Centre kFarCentre = {
    -8.0L,
    {-0.052705050356386202622082675793888621L, -0.331251580751137859969876239275707020L},
    {0.935560938198306551025522462132635732L, -0.159450497812981389349935733650156225L}};

// Between the two power series and the expansion.
double Middle(Which which, double x) {
  const Centre& centre = x < kNearEnd ? kFarCentre : kNearCentre;
  const std::size_t at = which == Which::Ai ? 0 : 1;
  return static_cast<double>(
      TaylorAbout(centre.x, centre.value[at], centre.slope[at], static_cast<Wide>(x) - centre.x));
}

// Ai(x). Domain: x >= -1e10. Method: power series from -2.5 to 2 (DLMF 9.4.1), Taylor's
// series about -4 and -8 to -9.75, the asymptotic expansions beyond (9.7.5, 9.7.9), above 2 the
// trapezoidal rule on K_1/3 (9.6.2). Error: measured up to 1.7e-16 of the value or, near zeros, of
// 0.1.
double AiryA(double x) {
  if (x < kFarEnd) return Oscillating(Which::Ai, x);
  if (x < kSeriesEnd) return Middle(Which::Ai, x);
  if (x <= 2.0) return static_cast<double>(Maclaurin(Which::Ai, x));
  if (x > 110.0) return 0.0;
  const Wide zeta = ZetaOf(x);
  const auto rounded = static_cast<double>(zeta);
  const Wide decay = WideExp({-rounded, static_cast<double>(static_cast<Wide>(rounded) - zeta)});
  if (x < 10.0) {
    const Wide size = std::sqrt(static_cast<Wide>(x) / 3.0L) / kWidePi;
    return static_cast<double>(decay * size * static_cast<Wide>(ScaledBesselK(1.0 / 3.0, rounded)));
  }
  const Sums sums(rounded, 1.0);
  return static_cast<double>(decay * SizeOf(x) *
                             (0.5L + static_cast<Wide>(0.5 * (sums.even - sums.odd))));
}

// Bi(x). Domain: x >= -1e10 until it overflows near 104. Method: power series from -2.5 to 10
// (DLMF 9.4.3), Taylor's series about -4 and -8 to -9.75, the asymptotic expansions beyond
// (9.7.7, 9.7.11). Error: measured up to 2.3e-16 of the value or, near zeros, of 0.1.
double AiryB(double x) {
  if (x < kFarEnd) return Oscillating(Which::Bi, x);
  if (x < kSeriesEnd) return Middle(Which::Bi, x);
  if (x <= 10.0) return static_cast<double>(Maclaurin(Which::Bi, x));
  if (x > 110.0) return kNoNumber;
  const Wide zeta = ZetaOf(x);
  const auto rounded = static_cast<double>(zeta);
  const Sums sums(rounded, 1.0);
  const Wide half =
      WideExp({0.5 * rounded, 0.5 * static_cast<double>(zeta - static_cast<Wide>(rounded))});
  return static_cast<double>(half * SizeOf(x) * (1.0L + static_cast<Wide>(sums.even + sums.odd)) *
                             half);
}

constexpr std::array kFunctions = {Special<AiryA>("airya", 99), Special<AiryB>("airyb", 100)};

}  // namespace

FunctionFamily AiryFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

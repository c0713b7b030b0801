#include <array>
#include <cmath>
#include <numbers>
#include <random>

#include "mathparser/angle.h"
#include "mathparser/function_catalogue.h"
#include "mathparser/integer_math.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

bool IsOdd(double b) { return std::abs(std::fmod(b, 2.0)) == 1.0; }

// A power of a whole number has that number as its root, which a root's rounding may miss.
double CubeRoot(double a, double) {
  const double root = std::cbrt(a);
  const double whole = std::nearbyint(root);
  return whole * whole * whole == a ? whole : root;
}

// The b-th root of a; of a negative a for odd whole b, and where the power 1/b of it exists.
double Root(double a, double b) {
  if (b == 0.0) return kNoNumber;
  if (b == 2.0) return std::sqrt(a);
  if (b == 3.0) return CubeRoot(a, 1.0);
  const bool turned = a < 0.0 && IsOdd(b);
  const double magnitude = std::pow(turned ? -a : a, 1.0 / b);
  const double whole = std::nearbyint(magnitude);
  const double root = std::pow(whole, b) == std::abs(a) ? whole : magnitude;
  return turned ? -root : root;
}

// Dividing by the logarithm of 0 would give 0.
double LogarithmTo(double a, double b) { return b == 0.0 ? kNoNumber : std::log(a) / std::log(b); }

// The hyperbolic inverses of 1/a, not by the rounded 1/a, which near 1 would leave them few digits
// and below 1e-308 none.
double InverseSech(double a, double) {
  const double complement = (1.0 - a) * (1.0 + a);
  if (a < 0.5) return std::log1p(std::sqrt(complement)) - std::log(a);
  return 2.0 * std::atanh(std::sqrt((1.0 - a) / (1.0 + a)));
}

double InverseCoth(double a, double) {
  return std::copysign(0.5 * std::log1p(2.0 / (std::abs(a) - 1.0)), a);
}

double InverseCsch(double a, double) {
  constexpr double kLn2 = std::numbers::ln2;
  if (std::abs(a) < 1e-300) return std::copysign(kLn2 - std::log(std::abs(a)), a);
  return std::asinh(1.0 / a);
}

double Random(const double* a, CallContext& context) { return context.random->Next() * a[0]; }

constexpr std::array kFunctions = {
    OnePropagating<[](double a, double) { return std::abs(a); }>("abs", 7),
    OnePropagating<[](double a, double) { return -a; }>("neg", 75),
    One<[](double a, double) { return std::exp(a); }>("exp", 12),
    OnePropagating<[](double a, double) { return std::log(a); }>("ln", 15),
    OnePropagating<[](double a, double) { return std::log(a); }>("log", 16),
    Two<LogarithmTo>("logn", 77),
    OnePropagating<[](double a, double) { return std::sqrt(a); }>("sqr", 19),
    One<CubeRoot>("cbr", 65),
    Two<Root>("root", 66),
    FunctionEntry{.keyword = "rnd", .code = 17, .kernel = Random, .isRandom = true},

    OnePropagating<[](double a, double f) { return std::sin(a * f); }>("sin", 11),
    OnePropagating<[](double a, double f) { return std::cos(a * f); }>("cos", 9),
    OnePropagating<[](double a, double f) { return std::tan(a * f); }>("tan", 20),
    One<[](double a, double f) { return 1.0 / std::sin(a * f); }>("csc", 53),
    One<[](double a, double f) { return 1.0 / std::cos(a * f); }>("sec", 54),
    One<[](double a, double f) { return 1.0 / std::tan(a * f); }>("cot", 55),
    One<[](double a, double f) { return std::asin(a) / f; }>("asin", 22),
    One<[](double a, double f) { return std::acos(a) / f; }>("acos", 21),
    One<[](double a, double f) { return std::atan(a) / f; }>("atn", 8),
    One<[](double a, double f) { return std::atan(a) / f; }>("atan", 8),
    One<[](double a, double f) { return std::asin(1.0 / a) / f; }>("acsc", 56),
    One<[](double a, double f) { return std::acos(1.0 / a) / f; }>("asec", 57),
    One<[](double a, double f) { return a == 0.0 ? kNoNumber : std::atan(1.0 / a) / f; }>("acot",
                                                                                          58),

    One<[](double a, double) { return std::sinh(a); }>("sinh", 24),
    One<[](double a, double) { return std::cosh(a); }>("cosh", 23),
    One<[](double a, double) { return std::tanh(a); }>("tanh", 25),
    One<[](double a, double) { return 1.0 / std::sinh(a); }>("csch", 59),
    One<[](double a, double) { return 1.0 / std::cosh(a); }>("sech", 60),
    One<[](double a, double) { return 1.0 / std::tanh(a); }>("coth", 61),
    One<[](double a, double) { return std::asinh(a); }>("asinh", 27),
    One<[](double a, double) { return std::acosh(a); }>("acosh", 26),
    One<[](double a, double) { return std::atanh(a); }>("atanh", 28),
    One<InverseCsch>("acsch", 62),
    One<InverseSech>("asech", 63),
    One<InverseCoth>("acoth", 64),

    // From the unit of the name into the current one.
    One<[](double a, double f) { return a / f; }>("rad", 68),
    One<[](double a, double f) { return a * kPi / 180.0 / f; }>("deg", 69),
    One<[](double a, double f) { return a * kPi / 200.0 / f; }>("grad", 71),
};

}  // namespace

double RandomSource::Next() {
  if (!state_) {
    std::random_device device;
    state_ = (std::uint64_t{device()} << 32U) | device();
  }
  // SplitMix64 (Steele, Lea, Flood 2014); the upper 53 bits make a double in [0,1).
  std::uint64_t bits = (*state_ += 0x9E3779B97F4A7C15U);
  bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
  bits ^= bits >> 31U;
  return static_cast<double>(bits >> 11U) * 0x1p-53;
}

FunctionFamily ElementaryFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include "mathparser/integer_math.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "mathparser/function_catalogue.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kExactIntegers = 9007199254740992.0;  // 2^53
constexpr std::size_t kFactorials = 171;               // 170! is the last that a double holds

bool IsWhole(double a) { return std::isfinite(a) && std::trunc(a) == a; }

// Products of doubles drift by a unit in the last place here and there, so the rounding error of
// each is carried along. The power of two is kept apart, or the error would overflow first.
std::array<double, kFactorials> MakeFactorials() {
  std::array<double, kFactorials> table{};
  double product = 1.0;
  double error = 0.0;
  int exponent = 0;
  table[0] = 1.0;
  for (std::size_t n = 1; n < kFactorials; ++n) {
    const auto factor = static_cast<double>(n);
    const double next = product * factor;
    error = error * factor + std::fma(product, factor, -next);
    product = next;
    int shift = 0;
    product = std::frexp(product, &shift);
    error = std::ldexp(error, -shift);
    exponent += shift;
    table[n] = std::ldexp(product + error, exponent);
  }
  return table;
}

constexpr std::array kFunctions = {
    One<[](double a, double) { return Factorial(a); }>("fact", 30),
    Two<Combinations>("comb", 31),
    Two<Permutations>("perm", 76),
    Two<GreatestCommonDivisor>("gcd", 34),
    Two<GreatestCommonDivisor>("mcd", 34),
    Two<LeastCommonMultiple>("lcm", 35),
    Two<LeastCommonMultiple>("mcm", 35),
};

}  // namespace

double Factorial(double a) {
  static const std::array<double, kFactorials> kTable = MakeFactorials();
  if (!IsWhole(a) || a < 0.0) return kNoNumber;
  if (a >= static_cast<double>(kFactorials)) return kInfinity;
  return kTable[static_cast<std::size_t>(a)];
}

double Combinations(double n, double k) {
  if (!IsWhole(n) || !IsWhole(k) || n < 0.0 || k < 0.0) return kNoNumber;
  if (k > n) return 0.0;
  k = std::min(k, n - k);
  double result = 1.0;
  // Ends early: at least doubled by every step, the result is infinite before 2000 of them.
  for (double i = 1.0; i <= k && result < kInfinity; ++i) {
    double factor = n - k + i;
    double divisor = i;
    if (result < kExactIntegers && factor < kExactIntegers) {
      // result * factor / divisor is whole: shortened first, nothing is lost on the way.
      const double common = GreatestCommonDivisor(result, divisor);
      result /= common;
      divisor /= common;
    }
    result *= factor / divisor;
  }
  return result;
}

double Permutations(double n, double k) {
  if (!IsWhole(n) || !IsWhole(k) || n < 0.0 || k < 0.0) return kNoNumber;
  if (k > n) return 0.0;
  if (n < static_cast<double>(kFactorials) && k == n) return Factorial(n);
  double result = 1.0;
  for (double i = 0.0; i < k && result < kInfinity; ++i) result *= n - i;
  return result;
}

double GreatestCommonDivisor(double a, double b) {
  if (!IsWhole(a) || !IsWhole(b)) return kNoNumber;
  a = std::abs(a);
  b = std::abs(b);
  while (b != 0.0) {
    const double rest = std::fmod(a, b);
    a = b;
    b = rest;
  }
  return a;
}

double LeastCommonMultiple(double a, double b) {
  const double divisor = GreatestCommonDivisor(a, b);
  return divisor == 0.0 ? 0.0 : std::abs(a) / divisor * std::abs(b);
}

FunctionFamily IntegerFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include "mathparser/integer_math.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "mathparser/function_catalogue.h"
#include "mathparser/operations.h"
#include "mathparser/special/densities.h"
#include "mathparser/special/gamma.h"

namespace zentab::mathparser {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::size_t kFactorialCount = 171;  // 170! is the last that a double holds
// Up to as many factors comb and perm multiply, which gives every value below 2^53 exactly (the
// first comb with more of them is 4.7e17); a pair of mantissa and exponent could not. With more the
// roundings and the time would add up, and the pairs are the better way.
constexpr double kMostFactors = 30.0;
constexpr double kLeastForRise = 16.0;

bool IsWhole(double a) { return std::isfinite(a) && std::trunc(a) == a; }

// A table of exact values as far as a pair of doubles goes, beyond that to 30 digits.
constexpr std::array<DoubleDouble, kFactorialCount> MakeFactorials() {
  std::array<DoubleDouble, kFactorialCount> table{};
  table[0] = 1.0;
  for (std::size_t n = 1; n < kFactorialCount; ++n) {
    table[n] = table[n - 1] * DoubleDouble(static_cast<double>(n));
  }
  return table;
}
constexpr std::array<DoubleDouble, kFactorialCount> kFactorials = MakeFactorials();

// n (n-1) ... (n-k+1) / divisor to all digits of a double, so that a result below 2^53 is exact;
// the power of two of n is kept apart, or a product might overflow on the way.
double FallingProduct(double n, double k, DoubleDouble divisor) {
  if (k == 0.0) return 1.0;
  const int shift = std::ilogb(n);
  DoubleDouble product = 1.0;
  for (double i = 0.0; i < k; ++i) product *= DoubleDouble(std::ldexp(n - i, -shift));
  return std::ldexp((product / divisor).high, shift * static_cast<int>(k));
}

// n! / (n-k)!. Not by two factorials, whose logarithms take all digits from one of a large n.
GammaPair RiseOf(double n, double k) {
  const double lower = n - k + 1.0;
  if (lower >= kLeastForRise) return ExpPairOf(LogOfRise(k, lower));
  return GammaPairOf(n + 1.0) / GammaPairOf(lower);
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
  if (!IsWhole(a) || a < 0.0) return kNoNumber;
  if (a >= static_cast<double>(kFactorialCount)) return kInfinity;
  return kFactorials[static_cast<std::size_t>(a)].high;
}

double Combinations(double n, double k) {
  if (!IsWhole(n) || !IsWhole(k) || n < 0.0 || k < 0.0) return kNoNumber;
  if (k > n) return 0.0;
  k = std::min(k, n - k);
  if (k > kMostFactors) return Join(RiseOf(n, k) / GammaPairOf(k + 1.0));
  return FallingProduct(n, k, kFactorials[static_cast<std::size_t>(k)]);
}

double Permutations(double n, double k) {
  if (!IsWhole(n) || !IsWhole(k) || n < 0.0 || k < 0.0) return kNoNumber;
  if (k > n) return 0.0;
  if (n < static_cast<double>(kFactorialCount) && k == n) return Factorial(n);
  if (k > kMostFactors) return Join(RiseOf(n, k));
  return FallingProduct(n, k, 1.0);
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

#include <array>
#include <cmath>
#include <limits>

#include "mathparser/function_catalogue.h"
#include "mathparser/fused_operations.h"
#include "mathparser/integer_math.h"
#include "mathparser/operations.h"

namespace zentab::mathparser::operators {
namespace {

// Both operands as 32-bit integers, halves to the even one; no number beyond their range.
double IntegerQuotient(double a, double b) {
  constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
  const double dividend = std::nearbyint(a);
  const double divisor = std::nearbyint(b);
  const auto fits = [](double x) { return x >= kLowest && x <= kHighest; };
  if (!fits(dividend) || !fits(divisor) || divisor == 0.0) return kNoNumber;
  const double quotient = std::trunc(dividend / divisor) + 0.0;
  return fits(quotient) ? quotient : kNoNumber;
}

constexpr std::array kComparisons = {
    Fusible<Greater, kFuseGreater>(">", 36),
    Fusible<GreaterOrEqual, kFuseGreaterOrEqual>(">=", 37),
    Fusible<GreaterOrEqual, kFuseGreaterOrEqual>("=>", 37),
    Fusible<Less, kFuseLess>("<", 38),
    Fusible<LessOrEqual, kFuseLessOrEqual>("<=", 39),
    Fusible<LessOrEqual, kFuseLessOrEqual>("=<", 39),
    Fusible<Equal, kFuseEqual>("=", 40),
    Fusible<NotEqual, kFuseNotEqual>("<>", 41),
};

}  // namespace

constinit const FunctionEntry kAdd = Fusible<Add, kFuseAdd>("+", 0);
constinit const FunctionEntry kSubtract = Fusible<Subtract, kFuseSubtract>("-", 1);
constinit const FunctionEntry kMultiply = Fusible<Multiply, kFuseMultiply>("*", 2);
constinit const FunctionEntry kDivide = Fusible<Divide, kFuseDivide>("/", 3);
constinit const FunctionEntry kPercent =
    OnePropagating<[](double a, double) { return a / 100.0; }>("%", 4);
constinit const FunctionEntry kIntegerDivide = Two<IntegerQuotient>("\\", 5);
constinit const FunctionEntry kPower =
    Two<[](double a, double b) { return std::pow(a, b); }>("^", 6);
constinit const FunctionEntry kAbsolute =
    OnePropagating<[](double a, double) { return std::abs(a); }>("abs", 7);
constinit const FunctionEntry kFactorial =
    One<[](double a, double) { return Factorial(a); }>("!", 30);
constinit const FunctionEntry kNegate =
    OnePropagating<[](double a, double) { return -a; }>("neg", 75);
constinit const FunctionEntry kRight = Two<[](double, double b) { return b; }>("@Right", 1000);

const FunctionEntry* Comparison(std::string_view sign) {
  for (const FunctionEntry& entry : kComparisons) {
    if (entry.keyword == sign) return &entry;
  }
  return nullptr;
}

}  // namespace zentab::mathparser::operators

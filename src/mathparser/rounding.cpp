#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "mathparser/function_catalogue.h"
#include "mathparser/fused_operations.h"
#include "mathparser/integer_math.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

constexpr int kSignificantDigits = 15;

// The 15 significant digits of a number as the user sees them: 0.digits times 10^point.
struct Decimal {
  std::array<char, kSignificantDigits> digits;
  int point;
};

Decimal DecimalOf(double magnitude) {
  std::array<char, 32> text{};  // d.dddddddddddddde+XXX
  const char* end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                  std::chars_format::scientific, kSignificantDigits - 1)
                        .ptr;
  Decimal decimal{};
  decimal.digits[0] = text[0];
  std::copy_n(text.data() + 2, kSignificantDigits - 1, decimal.digits.data() + 1);
  const char* exponent = text.data() + kSignificantDigits + 2;
  if (*exponent == '+') ++exponent;
  std::from_chars(exponent, end, decimal.point);
  ++decimal.point;
  return decimal;
}

// The number that some of the digits make, 0.digits times 10^point.
double NumberOf(std::string_view digits, int point) {
  std::array<char, 40> text{'0', '.'};
  char* end = std::copy(digits.begin(), digits.end(), text.data() + 2);
  *end++ = 'e';
  end = std::to_chars(end, text.data() + text.size(), point).ptr;
  double number = 0.0;
  const auto result = std::from_chars(text.data(), end, number);
  // 1.7976931348623157e308 ends in ...16 with 15 digits, which is more than a double holds.
  return result.ec == std::errc() ? number : kNoNumber;
}

// To more digits than the user sees, 15 or 16; all 17 are the number itself.
double RoundExactly(double a, int digits) {
  std::array<char, 40> text{};
  const char* end = std::to_chars(text.data(), text.data() + text.size(), a,
                                  std::chars_format::scientific, digits - 1)
                        .ptr;
  double number = 0.0;
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() ? number : kNoNumber;
}

// Halves, told by the decimal digits rather than the binary ones, go to the even digit.
double Round(double a, double decimals) {
  const double magnitude = std::abs(a);
  const double wanted = std::nearbyint(decimals);
  if (!std::isfinite(a) || std::isnan(wanted)) return kNoNumber;
  if (magnitude == 0.0 || wanted > 400.0) return a;
  Decimal decimal = DecimalOf(magnitude);
  const double kept = decimal.point + std::max(wanted, -400.0);
  if (kept >= kSignificantDigits + 2) return a;
  if (kept >= kSignificantDigits) return RoundExactly(a, static_cast<int>(kept));
  if (kept < 0.0) return std::copysign(0.0, a);
  const auto length = static_cast<std::size_t>(kept);
  const char* first = decimal.digits.data() + length;
  const char* last = decimal.digits.data() + decimal.digits.size();
  const bool isHalf =
      *first == '5' && std::all_of(first + 1, last, [](char c) { return c == '0'; });
  const bool isOdd = length > 0 && (decimal.digits[length - 1] - '0') % 2 != 0;
  const bool up = isHalf ? isOdd : *first >= '5';
  // One digit more in front takes the carry.
  std::array<char, kSignificantDigits + 1> rounded{'0'};
  std::copy_n(decimal.digits.begin(), length, rounded.begin() + 1);
  if (up) {
    std::size_t at = length;
    for (; rounded[at] == '9'; --at) rounded[at] = '0';
    ++rounded[at];
  }
  const std::string_view digits(rounded.data(), length + 1);
  return std::copysign(NumberOf(digits, decimal.point + 1), a);
}

double DecimalPart(double a) {
  if (!std::isfinite(a)) return kNoNumber;
  if (a == 0.0) return a;
  const Decimal decimal = DecimalOf(std::abs(a));
  const std::string_view digits(decimal.digits.data(), decimal.digits.size());
  if (decimal.point >= kSignificantDigits) return 0.0;
  if (decimal.point <= 0) return std::copysign(NumberOf(digits, decimal.point), a);
  return std::copysign(NumberOf(digits.substr(static_cast<std::size_t>(decimal.point)), 0), a);
}

double Sign(double a, double) {
  if (a == 0.0) return 0.0;
  return a < 0.0 ? -1.0 : 1.0;
}

double Clip(const double* a, CallContext&) { return std::min(std::max(a[0], a[1]), a[2]); }

constexpr std::array kFunctions = {
    One<[](double a, double) { return std::trunc(a); }>("fix", 13),
    One<[](double a, double) { return std::floor(a); }>("int", 14),
    One<[](double a, double) { return DecimalPart(a); }>("dec", 67),
    One<Sign>("sgn", 18),
    Two<Round>("round", 70),
    Two<[](double a, double b) { return std::fmod(a, b); }>("mod", 29),
    Fusible<Minimum, kFuseMinimum>("min", 32),
    Fusible<Maximum, kFuseMaximum>("max", 33),
    FunctionEntry{"clip", 207, 3, Clip},
};

}  // namespace

FunctionFamily RoundingFunctions() { return kFunctions; }

}  // namespace zentab::mathparser

#include "texts/number_text.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>

#include "texts/characters.h"

namespace zentab::texts {
namespace {

constexpr int kSignificantDigits = 15;

std::size_t PastDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

// The length of the number that begins the text (after its sign), 0 when none does.
std::size_t NumberLength(std::string_view text) {
  const std::size_t whole = PastDigits(text, 0);
  std::size_t end = whole;
  std::size_t digits = whole;
  if (end < text.size() && text[end] == '.') {
    end = PastDigits(text, end + 1);
    digits += end - whole - 1;
  }
  if (digits == 0) return 0;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t exponentEnd = PastDigits(text, exponent);
    if (exponentEnd > exponent) end = exponentEnd;
  }
  return end;
}

// Whether a number that does not fit a double is too small for it rather than too large.
bool IsTiny(std::string_view number) {
  const std::size_t exponent = number.find_first_of("eE");
  if (exponent != std::string_view::npos) return number[exponent + 1] == '-';
  const std::size_t point = std::min(number.find('.'), number.size());
  return number.substr(0, point).find_first_not_of('0') == std::string_view::npos;
}

struct Parsed {
  std::optional<double> value;
  std::size_t end = 0;
};

// A number of few digits and no exponent, which most are: its digits as a whole number and the
// power of ten below them are doubles, so that one division rounds as it should. The text begins
// behind its sign; any other number has no value and no end here.
Parsed ParseShortNumber(std::string_view text) {
  constexpr std::array<double, 16> kPowers = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  // A processor that divides with more digits than a double has rounds twice.
  if (FLT_EVAL_METHOD != 0) return {};
  std::uint64_t digits = 0;
  std::size_t count = 0;
  std::size_t whole = std::string_view::npos;  // digits before the point, once it is passed
  std::size_t at = 0;
  for (; at < text.size() && count < kPowers.size(); ++at) {
    const char c = text[at];
    if (IsDigit(c)) {
      digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
      ++count;
    } else if (c == '.' && whole == std::string_view::npos) {
      whole = count;
    } else {
      break;
    }
  }
  const bool goesOn = at < text.size() && (text[at] == 'e' || text[at] == 'E');
  if (count == 0 || count == kPowers.size() || goesOn) return {};
  return {static_cast<double>(digits) / kPowers[count - std::min(whole, count)], at};
}

Parsed ParseNumber(std::string_view text) {
  std::size_t begin = 0;
  while (begin < text.size() && text[begin] == ' ') ++begin;
  const bool negative = begin < text.size() && text[begin] == '-';
  if (negative || (begin < text.size() && text[begin] == '+')) ++begin;
  if (const Parsed parsed = ParseShortNumber(text.substr(begin)); parsed.value) {
    return {negative ? -*parsed.value : *parsed.value, begin + parsed.end};
  }
  const std::string_view number = text.substr(begin, NumberLength(text.substr(begin)));
  if (number.empty()) return {};
  double value = 0.0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (!IsTiny(number)) return {std::nullopt, begin + number.size()};
    value = 0.0;
  }
  return {negative ? -value : value, begin + number.size()};
}

// A number as d.ddd times a power of ten: its significant digits without trailing zeros.
struct DecimalForm {
  std::string digits;
  int exponent;
};

DecimalForm DecimalFormOf(double number, int significantDigits = kSignificantDigits) {
  // d.dddddddddddddde+XX, from which the digits and the exponent are taken.
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(number),
                                 std::chars_format::scientific, significantDigits - 1)
                       .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t mark = text.find('e');
  std::string digits(1, text[0]);
  if (mark > 2) digits += text.substr(2, mark - 2);
  digits.erase(std::max<std::size_t>(digits.find_last_not_of('0') + 1, 1));
  std::string_view exponent = text.substr(mark + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  int power = 0;
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  return {std::move(digits), power};
}

// As the grid shows it.
std::string GridForm(bool negative, DecimalForm form, std::string_view decimalSeparator) {
  auto& [digits, exponent] = form;
  std::string result = negative ? "-" : "";
  const auto withPoint = [&result, &decimalSeparator, &digits = form.digits](std::size_t whole) {
    result += digits.substr(0, whole);
    if (digits.size() > whole) result.append(decimalSeparator).append(digits.substr(whole));
  };
  if (exponent >= kSignificantDigits || exponent < -4) {
    withPoint(1);
    result += exponent < 0 ? "E-" : "E+";
    const std::string power = std::to_string(std::abs(exponent));
    if (power.size() < 2) result += '0';
    result += power;
  } else if (exponent < 0) {
    digits.insert(0, static_cast<std::size_t>(-exponent), '0');
    withPoint(1);
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < whole) digits.resize(whole, '0');
    withPoint(whole);
  }
  return result;
}

// Adds one to the last digit of a row of digits, which may grow by one in front.
void CountUp(std::string& digits) {
  std::size_t at = digits.size();
  while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
  if (at == 0) {
    digits.insert(digits.begin(), '1');
  } else {
    ++digits[at - 1];
  }
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string SetDecimalSeparator(std::string_view number, std::string_view separator) {
  std::size_t at = number.find(',');
  if (at == std::string_view::npos) at = number.find('.');
  std::string result(number);
  if (at != std::string_view::npos) result.replace(at, 1, separator);
  return result;
}

std::string FileNumber(std::string_view cell, std::string_view localeSeparator) {
  const bool isUsual = localeSeparator.empty() || localeSeparator == "," || localeSeparator == ".";
  const std::size_t at = isUsual ? std::string_view::npos : cell.find(localeSeparator);
  if (at == std::string_view::npos) return SetDecimalSeparator(cell, ".");
  std::string result(cell);
  result.replace(at, localeSeparator.size(), ".");
  return result;
}

std::optional<double> LeadingNumber(std::string_view text) { return ParseNumber(text).value; }

std::optional<double> WholeNumber(std::string_view text) {
  const Parsed parsed = ParseNumber(text);
  if (!parsed.value || !TrimBlanks(text.substr(parsed.end)).empty()) return std::nullopt;
  return parsed.value;
}

std::optional<std::int16_t> ShortInteger(std::string_view text) {
  const std::optional<double> number = WholeNumber(SetDecimalSeparator(text, "."));
  if (!number) return std::nullopt;
  const double rounded = RoundHalfEven(*number, 0);
  using Limits = std::numeric_limits<std::int16_t>;
  if (rounded < Limits::min() || rounded > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

std::string NumberText(double number, std::string_view decimalSeparator) {
  if (!std::isfinite(number)) return std::isnan(number) ? "NaN" : number > 0 ? "INF" : "-INF";
  if (number == 0.0) return "0";
  return GridForm(number < 0, DecimalFormOf(number), decimalSeparator);
}

std::string ShortText(double number, double tolerance, std::string_view decimalSeparator) {
  constexpr int kExactDigits = 17;
  if (!std::isfinite(number) || std::abs(number) <= tolerance) {
    return NumberText(std::isfinite(number) ? 0.0 : number, decimalSeparator);
  }
  for (int digits = 1; digits < kExactDigits; ++digits) {
    std::string text = GridForm(number < 0, DecimalFormOf(number, digits), ".");
    const std::optional<double> shown = LeadingNumber(text);
    if (shown && std::abs(*shown - number) <= tolerance) {
      return SetDecimalSeparator(text, decimalSeparator);
    }
  }
  return GridForm(number < 0, DecimalFormOf(number, kExactDigits), decimalSeparator);
}

std::string FixedText(double number, int decimals) {
  if (!std::isfinite(number)) return NumberText(number, ".");
  auto [digits, exponent] = DecimalFormOf(number);
  // As a whole number of the last decimal: cut or filled to that length, then rounded.
  const int length = exponent + 1 + decimals;
  const bool roundsUp = length >= 0 && static_cast<std::size_t>(length) < digits.size() &&
                        digits[static_cast<std::size_t>(length)] >= '5';
  digits.resize(static_cast<std::size_t>(std::max(length, 0)), '0');
  if (roundsUp) CountUp(digits);
  const auto behindPoint = static_cast<std::size_t>(decimals);
  if (digits.size() <= behindPoint) digits.insert(0, behindPoint + 1 - digits.size(), '0');
  const bool isZero = digits.find_first_not_of('0') == std::string::npos;
  digits.insert(digits.size() - behindPoint, 1, '.');
  return (number < 0.0 && !isZero ? "-" : "") + digits;
}

double ShownValue(float number) {
  if (!std::isfinite(number)) return number;
  std::array<char, 32> buffer{};
  constexpr int kDigits = 7;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                 std::chars_format::scientific, kDigits - 1)
                       .ptr;
  double shown = 0.0;
  std::from_chars(buffer.data(), end, shown);
  return shown;
}

double RoundHalfEven(double number, int decimals) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = number * scale;
  // From 2^52 up a double has no digits behind the point.
  if (!std::isfinite(scaled) || std::abs(scaled) >= 4503599627370496.0) return number;
  const double whole = std::floor(std::abs(scaled));
  const double asShown = *LeadingNumber(NumberText(std::abs(scaled), "."));
  double rounded = asShown - whole < 0.5 ? whole : whole + 1.0;
  if (asShown - whole == 0.5) rounded = std::fmod(whole, 2.0) == 0.0 ? whole : whole + 1.0;
  return std::copysign(rounded, number) / scale;
}

}  // namespace zentab::texts

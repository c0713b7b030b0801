#include "mathparser/operand_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "mathparser/angle.h"

namespace zentab::mathparser {
namespace {

struct Constant {
  std::string_view name;
  double value;
};

// Physical constants in SI units, CODATA 1986.
constexpr std::array kConstants = {
    Constant{"pi", kPi},
    Constant{"PI", kPi},
    Constant{"pi2", kPi / 2},
    Constant{"pi3", kPi / 3},
    Constant{"pi4", kPi / 4},
    Constant{"e", 2.71828182845905},
    Constant{"eu", 0.577215664901533},
    Constant{"phi", 1.61803398874989},
    Constant{"g", 9.80665},
    Constant{"G", 6.672e-11},
    Constant{"R", 8.31451},
    Constant{"eps", 8.854187817e-12},
    Constant{"mu", 12.566370614e-7},
    Constant{"c", 2.99792458e8},
    Constant{"q", 1.60217733e-19},
    Constant{"me", 9.1093897e-31},
    Constant{"mp", 1.6726231e-27},
    Constant{"mn", 1.6749286e-27},
    Constant{"K", 1.380658e-23},
    Constant{"h", 6.6260755e-34},
    Constant{"A", 6.0221367e23},
};

struct PowerOfTen {
  std::string_view text;
  int exponent;
};

// The micro has two characters, the sign of old character sets and the Greek letter.
constexpr std::array kPrefixes = {
    PowerOfTen{"p", -12},     PowerOfTen{"n", -9}, PowerOfTen{"u", -6}, PowerOfTen{"\u00B5", -6},
    PowerOfTen{"\u03BC", -6}, PowerOfTen{"m", -3}, PowerOfTen{"c", -2}, PowerOfTen{"k", 3},
    PowerOfTen{"M", 6},       PowerOfTen{"G", 9},  PowerOfTen{"T", 12},
};

// Grams count as thousandths, so that the kilogram is the unit.
constexpr std::array kUnits = {
    PowerOfTen{"s", 0},   PowerOfTen{"Hz", 0},  PowerOfTen{"m", 0},   PowerOfTen{"rad", 0},
    PowerOfTen{"Rad", 0}, PowerOfTen{"RAD", 0}, PowerOfTen{"S", 0},   PowerOfTen{"V", 0},
    PowerOfTen{"A", 0},   PowerOfTen{"W", 0},   PowerOfTen{"F", 0},   PowerOfTen{"bar", 0},
    PowerOfTen{"Pa", 0},  PowerOfTen{"Nm", 0},  PowerOfTen{"Ohm", 0}, PowerOfTen{"ohm", 0},
    PowerOfTen{"g", -3},
};

constexpr std::array kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

std::size_t PastDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

// The length of the digits with at most one "." that begin the text, 0 without a digit.
std::size_t DecimalLength(std::string_view text) {
  std::size_t end = PastDigits(text, 0);
  std::size_t digits = end;
  if (end < text.size() && text[end] == '.') {
    const std::size_t past = PastDigits(text, end + 1);
    digits += past - end - 1;
    end = past;
  }
  return digits == 0 ? 0 : end;
}

std::size_t NumberLength(std::string_view text) {
  const std::size_t end = DecimalLength(text);
  if (end == 0 || end == text.size() || (text[end] != 'e' && text[end] != 'E')) return end;
  std::size_t digits = end + 1;
  if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
  const std::size_t past = PastDigits(text, digits);
  return past > digits ? past : end;
}

// The decimal exponent of a number's first digit that counts.
double Magnitude(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view decimal = number.substr(0, mark);
  const std::size_t first = decimal.find_first_of("123456789");
  if (first == std::string_view::npos) return -1e300;
  const auto place = [](std::size_t at) { return static_cast<double>(at); };
  double magnitude = place(std::min(decimal.find('.'), decimal.size())) - place(first);
  if (mark < number.size()) {
    std::string_view power = number.substr(mark + 1);
    const bool negative = power.front() == '-';
    if (!IsDigit(power.front())) power.remove_prefix(1);
    double exponent = 0.0;
    for (const char digit : power) exponent = exponent * 10.0 + (digit - '0');
    magnitude += negative ? -exponent : exponent;
  }
  return magnitude;
}

// The value of a text that NumberLength takes as a whole, nothing beyond the range of a double.
std::optional<double> NumberValue(std::string_view number) {
  double value = 0.0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc() || !std::isfinite(value)) {
    if (Magnitude(number) > 0.0) return std::nullopt;
    value = 0.0;
  }
  return value;
}

template <std::size_t N>
const PowerOfTen* Find(const std::array<PowerOfTen, N>& table, std::string_view text) {
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const auto& entry) { return entry.text == text; });
  return found == table.end() ? nullptr : &*found;
}

// The power of ten that a unit and its prefix stand for.
std::optional<int> UnitExponent(std::string_view unit) {
  if (const PowerOfTen* entry = Find(kUnits, unit)) return entry->exponent;
  for (const PowerOfTen& prefix : kPrefixes) {
    if (!unit.starts_with(prefix.text)) continue;
    const PowerOfTen* entry = Find(kUnits, unit.substr(prefix.text.size()));
    if (entry != nullptr) return prefix.exponent + entry->exponent;
  }
  return std::nullopt;
}

std::optional<double> NumberWithUnit(std::string_view token) {
  const std::size_t length = NumberLength(token);
  if (length == 0) return std::nullopt;
  const std::optional<double> number = NumberValue(token.substr(0, length));
  if (!number || length == token.size()) return number;
  const std::optional<int> exponent = UnitExponent(token.substr(length));
  if (!exponent) return std::nullopt;
  // Dividing by 10^n keeps 3us at 3e-06, where multiplying by 10^-n would miss it.
  const double power = kPowersOfTen[static_cast<std::size_t>(std::abs(*exponent))];
  const double value = *exponent < 0 ? *number / power : *number * power;
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

bool HasAngleMarks(std::string_view token) {
  if (token.find("°") != std::string_view::npos) return true;
  if (token.find_first_of("'\"") != std::string_view::npos) return true;
  const std::size_t degrees = DecimalLength(token);
  return degrees > 0 && degrees < token.size() && token[degrees] == 'd' &&
         token.find_first_not_of("0123456789.ms", degrees + 1) == std::string_view::npos;
}

// Degrees, then minutes and seconds as far as they are given, each with its mark.
std::optional<double> AngleValue(std::string_view token) {
  struct Part {
    std::string_view mark;
    std::string_view letter;
    int sixtieths;  // how often it is divided by 60
  };
  constexpr std::array kParts = {Part{"°", "d", 0}, Part{"'", "m", 1}, Part{"\"", "s", 2}};
  double angle = 0.0;
  for (const Part& part : kParts) {
    const std::size_t length = DecimalLength(token);
    const std::string_view rest = token.substr(length);
    const bool byMark = rest.starts_with(part.mark);
    if (length == 0 || (!byMark && !rest.starts_with(part.letter))) {
      if (part.sixtieths == 0) return std::nullopt;
      continue;
    }
    const std::optional<double> number = NumberValue(token.substr(0, length));
    if (!number) return std::nullopt;
    double degrees = *number;
    for (int i = 0; i < part.sixtieths; ++i) degrees /= 60.0;
    angle += degrees;
    token = rest.substr(byMark ? part.mark.size() : part.letter.size());
  }
  if (!token.empty() || !std::isfinite(angle)) return std::nullopt;
  return angle;
}

ReadOperand Literal(double value) { return {ReadOperand::Kind::Literal, value, {}}; }
ReadOperand Failure(std::string message) {
  return {ReadOperand::Kind::Failure, 0.0, std::move(message)};
}

}  // namespace

bool IsName(std::string_view text) {
  if (text.empty() || !IsLetter(text.front())) return false;
  return std::all_of(text.begin(), text.end(), [](char c) { return IsLetter(c) || IsDigit(c); });
}

ReadOperand ReadOperandToken(std::string_view token) {
  const bool isName = IsName(token);
  const bool hasSharp =
      !isName && token.ends_with('#') && IsName(token.substr(0, token.size() - 1));
  if (hasSharp || token == "pi" || token == "PI") {
    const std::string_view name = hasSharp ? token.substr(0, token.size() - 1) : token;
    for (const Constant& constant : kConstants) {
      if (constant.name == name) return Literal(constant.value);
    }
    return Failure("Constant unknown: " + std::string(name));
  }
  if (isName) return {ReadOperand::Kind::Variable, 0.0, {}};
  if (const std::optional<double> number = NumberWithUnit(token)) return Literal(*number);
  if (HasAngleMarks(token)) {
    const std::optional<double> angle = AngleValue(token);
    return angle ? Literal(*angle) : Failure("Wrong DMS format");
  }
  return Failure("Syntax error: " + std::string(token));
}

}  // namespace zentab::mathparser

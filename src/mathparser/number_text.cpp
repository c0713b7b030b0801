#include "mathparser/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace zentab::mathparser {

std::string NumberText(double number, std::string_view decimalSeparator) {
  constexpr int kSignificantDigits = 15;
  if (!std::isfinite(number)) return std::isnan(number) ? "NaN" : number > 0.0 ? "INF" : "-INF";
  if (number == 0.0) return "0";
  std::array<char, 32> buffer{};  // d.dddddddddddddde+XXX
  const char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(number),
                                  std::chars_format::scientific, kSignificantDigits - 1)
                        .ptr;
  const char* mark = buffer.data() + kSignificantDigits + 1;
  int exponent = 0;
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
  std::string digits(1, buffer[0]);
  digits.append(buffer.data() + 2, kSignificantDigits - 1);
  digits.erase(digits.find_last_not_of('0') + 1);

  const bool scientific = exponent >= kSignificantDigits || exponent < -4;
  std::size_t whole = 1;
  if (!scientific && exponent < 0) digits.insert(0, static_cast<std::size_t>(-exponent), '0');
  if (!scientific && exponent > 0) whole += static_cast<std::size_t>(exponent);
  if (digits.size() < whole) digits.resize(whole, '0');
  std::string text = number < 0.0 ? "-" : "";
  text += digits.substr(0, whole);
  if (digits.size() > whole) text.append(decimalSeparator).append(digits, whole);
  if (scientific) {
    text += exponent < 0 ? "E-" : "E+";
    if (std::abs(exponent) < 10) text += '0';
    text += std::to_string(std::abs(exponent));
  }
  return text;
}

}  // namespace zentab::mathparser

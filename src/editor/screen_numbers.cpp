#include "editor/screen_numbers.h"

#include <cmath>

#include "texts/number_text.h"

namespace zentab::editor {
namespace {

constexpr int kMostDecimals = 15;
constexpr double kReadable = 5e-7;  // of a number: six or seven digits

int PowerOf(double step) { return static_cast<int>(std::floor(std::log10(step))); }

bool IsUsable(double step) { return std::isfinite(step) && step > 0.0; }

}  // namespace

double RoundedTo(double number, double step) {
  if (!IsUsable(step)) return number;
  const int power = PowerOf(step);
  if (power < -kMostDecimals) return number;
  if (power <= 0) return texts::RoundHalfEven(number, -power);
  const double unit = std::pow(10.0, power);
  return std::round(number / unit) * unit;
}

std::string RoundedText(double number, double step, std::string_view decimalSeparator) {
  if (!IsUsable(step)) {
    return texts::ShortText(number, std::abs(number) * kReadable, decimalSeparator);
  }
  const double rounded = RoundedTo(number, step);
  const int power = PowerOf(step);
  if (power >= 0 || power < -kMostDecimals) return texts::NumberText(rounded, decimalSeparator);
  return texts::SetDecimalSeparator(texts::FixedText(rounded, -power), decimalSeparator);
}

}  // namespace zentab::editor

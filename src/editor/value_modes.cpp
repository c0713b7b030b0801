#include "editor/value_modes.h"

#include <cmath>

#include "editor/grid_points.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

double NumberOrZero(std::string_view text) { return CellNumber(text, ".").value_or(0.0); }

double Product(double number, double factor) {
  const double product = number * factor;
  return std::isfinite(product) ? product : number;
}

}  // namespace

ScaledPoint Scaled(const ValueModes& modes, std::string_view load, std::string_view time) {
  constexpr double kMillisecondsPerSecond = 1000.0;
  ScaledPoint point{NumberOrZero(load), NumberOrZero(time)};
  if (!modes.absoluteValues) point.load = Product(point.load, NumberOrZero(modes.pickup));
  if (modes.milliseconds) point.time /= kMillisecondsPerSecond;
  if (!modes.multiplier.empty()) point.time = Product(point.time, NumberOrZero(modes.multiplier));
  return point;
}

std::string_view MultiplierWhileTyping(std::string_view text,
                                       std::string_view localeDecimalSeparator) {
  const std::string number = texts::FileNumber(text, localeDecimalSeparator);
  return texts::WholeNumber(number) ? text : std::string_view();
}

std::string_view MultiplierWhenLeft(std::string_view text,
                                    std::string_view localeDecimalSeparator) {
  const double multiplier = CellNumber(text, localeDecimalSeparator).value_or(0.0);
  return multiplier == 0.0 ? std::string_view() : text;
}

}  // namespace zentab::editor

#include "editor/chart_axes.h"

#include <cmath>

#include "texts/number_text.h"

namespace zentab::editor {
namespace {

std::optional<Range> Scaled(const std::optional<Range>& range, double factor) {
  if (!range) return std::nullopt;
  return Range{range->minimum * factor, range->maximum * factor};
}

double TimesPerSecond(const ValueModes& modes) { return modes.milliseconds ? 1000.0 : 1.0; }

std::optional<Range> Usable(const std::optional<Range>& range, bool logarithmic) {
  const bool isUsable = range && std::isfinite(range->minimum) && std::isfinite(range->maximum) &&
                        range->minimum < range->maximum && (!logarithmic || range->minimum > 0.0);
  return isUsable ? range : std::nullopt;
}

}  // namespace

AxisKinds PossibleKinds(AxisKinds wanted, bool loadsPositive, bool timesPositive) {
  if (wanted.AreLogarithmic() && !(loadsPositive && timesPositive)) return {false, false};
  return {wanted.load && loadsPositive, wanted.time && timesPositive};
}

std::optional<double> PickupOf(const ValueModes& modes) {
  const auto pickup = texts::WholeNumber(texts::SetDecimalSeparator(modes.pickup, "."));
  return pickup && *pickup > 0.0 ? pickup : std::nullopt;
}

std::optional<double> LoadFactor(const ValueModes& modes, bool toAbsolute) {
  if (modes.absoluteValues == toAbsolute) return 1.0;
  const std::optional<double> pickup = PickupOf(modes);
  if (!pickup) return std::nullopt;
  return toAbsolute ? *pickup : 1.0 / *pickup;
}

bool ShowsAbsoluteLoads(const ChartAxes& wanted, const ValueModes& modes) {
  if (wanted.unit == LoadUnit::AsInGrid) return modes.absoluteValues;
  const bool absolute = wanted.unit == LoadUnit::Absolute;
  return LoadFactor(modes, absolute) ? absolute : modes.absoluteValues;
}

ViewAxes AxesFor(const ChartAxes& wanted, const ValueModes& modes) {
  ViewAxes axes;
  axes.logarithmic = wanted.logarithmic;
  axes.squareDecades = wanted.squareDecades;
  axes.loadFactor = LoadFactor(modes, ShowsAbsoluteLoads(wanted, modes)).value_or(1.0);
  if (const auto factor = LoadFactor(modes, wanted.absoluteLimits)) {
    axes.loads = Usable(Scaled(wanted.loads, 1.0 / *factor), false);
  }
  axes.times = Usable(Scaled(wanted.times, TimesPerSecond(modes)), false);
  return axes;
}

void SetLimits(ChartAxes& axes, const ValueModes& modes, const std::optional<Range>& loads,
               const std::optional<Range>& times) {
  axes.loads = Usable(loads, axes.logarithmic.load);
  axes.absoluteLimits = ShowsAbsoluteLoads(axes, modes);
  axes.times = Usable(Scaled(times, 1.0 / TimesPerSecond(modes)), axes.logarithmic.time);
}

}  // namespace zentab::editor

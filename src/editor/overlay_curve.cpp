#include "editor/overlay_curve.h"

#include <algorithm>
#include <cmath>

#include "editor/chart_reading.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

constexpr int kBetween = 24;  // loads over the whole range, beside those of the points

std::vector<double> LoadsOf(const ChartCurve& curve, const ChartCurve& reference, Range common,
                            bool logarithmic) {
  std::vector<double> loads;
  for (const ChartCurve* const each : {&curve, &reference}) {
    for (const ChartPoint& point : each->points) {
      if (point.load >= common.minimum && point.load <= common.maximum) loads.push_back(point.load);
    }
  }
  const bool byRatio = logarithmic && common.minimum > 0.0;
  for (int place = 1; place < kBetween; ++place) {
    const double part = static_cast<double>(place) / kBetween;
    loads.push_back(byRatio ? common.minimum * std::pow(common.maximum / common.minimum, part)
                            : std::lerp(common.minimum, common.maximum, part));
  }
  std::sort(loads.begin(), loads.end());
  loads.erase(std::unique(loads.begin(), loads.end()), loads.end());
  return loads;
}

}  // namespace

OverlayTable OverlayFrom(std::string name, const tables::ParsedEntry& entry,
                         const ValueModes& modes) {
  return {std::move(name), entry.points, entry.absoluteValues.value_or(modes.absoluteValues),
          entry.milliseconds.value_or(modes.milliseconds)};
}

ConvertedCurve Converted(const OverlayTable& table, const ValueModes& modes) {
  constexpr double kMilliseconds = 1000.0;
  ValueModes own = modes;
  own.absoluteValues = table.absoluteValues;
  const std::optional<double> load = LoadFactor(own, modes.absoluteValues);
  if (!load) return {{}, OverlayFault::NoPickup};
  const double time = table.milliseconds == modes.milliseconds ? 1.0
                      : modes.milliseconds                     ? kMilliseconds
                                                               : 1.0 / kMilliseconds;
  ConvertedCurve converted;
  ChartCurve& curve = converted.curve;
  for (const tables::CurvePoint& texts : table.points) {
    const std::optional<double> loadNumber = texts::LeadingNumber(texts.load);
    const std::optional<double> timeNumber = texts::LeadingNumber(texts.time);
    ++curve.rowCount;
    if (!loadNumber || !timeNumber) continue;
    const ChartPoint point{curve.rowCount - 1, *loadNumber * *load, *timeNumber * time};
    Widen(curve.load, point.load, curve.points.empty());
    Widen(curve.time, point.time, curve.points.empty());
    curve.points.push_back(point);
  }
  if (curve.points.size() < 2) return {{}, OverlayFault::NoCurve};
  return converted;
}

std::vector<PercentAt> DifferenceOf(const ChartCurve& curve, const ChartCurve& reference,
                                    AxisKinds axes) {
  constexpr double kWhole = 100.0;
  if (curve.points.size() < 2 || reference.points.size() < 2) return {};
  const Range common{std::max(curve.load.minimum, reference.load.minimum),
                     std::min(curve.load.maximum, reference.load.maximum)};
  if (!(common.minimum < common.maximum)) return {};
  std::vector<PercentAt> differences;
  for (const double load : LoadsOf(curve, reference, common, axes.load)) {
    const auto compared = TimeAt(reference, load, reference.time.maximum, axes);
    if (!compared || !(*compared > 0.0)) continue;
    const auto time = TimeAt(curve, load, *compared, axes);
    if (time) differences.push_back({load, (*time - *compared) / *compared * kWhole});
  }
  return differences;
}

}  // namespace zentab::editor

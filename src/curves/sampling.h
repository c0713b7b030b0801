#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "curves/characteristic.h"
#include "curves/table_curve.h"
#include "curves/thinning.h"

namespace zentab::curves {

/// How loads are chosen. Best: so that the largest deviation of the chart's straight lines from
/// the characteristic is least.
enum class Spacing { Logarithmic, Linear, Best };

struct Sampling {
  double from = 1.05;  // loads, in the characteristic's own
  double to = 20.0;
  std::size_t points = tables::kMaxPoints;  // 2 to kMaxPoints
  Spacing spacing = Spacing::Logarithmic;
};

/// The range that a family is usually drawn over: 1.05 to 20 times the pickup value, of
/// undervoltage 0.05 to 0.95.
[[nodiscard]] Sampling UsualSampling(const Characteristic& characteristic);

/// Loads from one to another, both among them exactly. BadRange, BadPointCount, LogarithmOfLoad.
[[nodiscard]] Outcome<std::vector<double>> SpacedLoads(const Sampling& sampling);

/// A characteristic as a table, times in s: spaced as asked for, with the deviation of straight
/// lines between its points, as a ratio. Faults as above, and those of CharacteristicCurve::TimeAt.
[[nodiscard]] Outcome<ChosenPoints> Sample(const CharacteristicCurve& curve,
                                           const Sampling& sampling);

/// The same at given loads, 1 to kMaxPoints, in their order. EqualLoads, BadPointCount. No
/// deviation is looked for.
[[nodiscard]] Outcome<ChosenPoints> SampleAt(const CharacteristicCurve& curve,
                                             std::span<const double> loads);

/// The largest deviation of lines between points of a characteristic from it, as a ratio of its
/// time; `logarithmic` as the axes are. At a definite step the lines are as steep as the points
/// allow; that line is left out.
[[nodiscard]] double DeviationOfLines(const CharacteristicCurve& curve,
                                      std::span<const Point> points, bool logarithmic);

}  // namespace zentab::curves

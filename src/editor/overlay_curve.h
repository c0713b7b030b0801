#pragma once

#include <string>
#include <vector>

#include "editor/chart_axes.h"
#include "tables/entry_line.h"

namespace zentab::editor {

/// An entry of a library as a further curve in the chart.
struct OverlayTable {
  std::string name;
  std::vector<tables::CurvePoint> points;
  bool absoluteValues = false;
  bool milliseconds = false;
};

/// The entry of a line of a table file; what it does not say it has from the modes.
[[nodiscard]] OverlayTable OverlayFrom(std::string name, const tables::ParsedEntry& entry,
                                       const ValueModes& modes);

/// Why a curve is not shown.
enum class OverlayFault { None, NoPickup, NoCurve };

struct ConvertedCurve {
  ChartCurve curve;
  OverlayFault fault = OverlayFault::None;
};

/// The curve in the units of a table of these modes.
[[nodiscard]] ConvertedCurve Converted(const OverlayTable& table, const ValueModes& modes);

/// How far a curve lies above another one at a load.
struct PercentAt {
  double load;
  double percent;  // of the other's time

  friend bool operator==(const PercentAt&, const PercentAt&) = default;
};

/// The difference of a curve from a reference, in per cent of its times, where both have a time:
/// at every load of a point of either, and so often between them that the line looks smooth. Both
/// are straight in these axes.
[[nodiscard]] std::vector<PercentAt> DifferenceOf(const ChartCurve& curve,
                                                  const ChartCurve& reference, AxisKinds axes);

}  // namespace zentab::editor

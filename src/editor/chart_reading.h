#pragma once

#include <optional>
#include <string>
#include <vector>

#include "editor/chart_axes.h"
#include "texts/chart_texts.h"

namespace zentab::editor {

/// The time of a curve at a load, on straight lines in the chart's axes: of several, as a curve
/// through rows in any order may have, the one nearest to `near`. Nothing where no line passes.
[[nodiscard]] std::optional<double> TimeAt(const ChartCurve& curve, double load, double near,
                                           AxisKinds axes);

/// A place in the chart as it is read off, in the grid's units.
struct Reading {
  double load = 0.0;
  std::optional<double> time;  // of the curve; nothing beside it
  int row = 0;                 // of the point that it is; 0: of none
  double loadStep = 0.0;       // from one pixel of the screen to the next; 0 at a point
  double timeStep = 0.0;
};

/// What the numbers of a reading are.
struct ReadingUnits {
  ValueModes modes;
  std::string absolute;  // the unit of absolute loads, may be empty
  std::string decimalSeparator;
};

/// What is said of a reading, in lines: the point's number, the load in multiples of the pickup
/// value and in absolute values, as far as the pickup value is known, and the time.
[[nodiscard]] std::vector<std::string> LinesOf(const Reading& reading, const ReadingUnits& units,
                                               const texts::ChartTexts& texts);

/// What is said of two places that have times, either of which may be missing: rows of a name, a
/// load and a time. Of both together follow their difference and their ratio, B to A.
[[nodiscard]] std::vector<std::vector<std::string>> RowsOf(const std::optional<Reading>& a,
                                                           const std::optional<Reading>& b,
                                                           const ReadingUnits& units,
                                                           const texts::ChartTexts& texts);

}  // namespace zentab::editor

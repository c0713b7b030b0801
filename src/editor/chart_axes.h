#pragma once

#include <optional>

#include "editor/chart_curve.h"
#include "editor/value_modes.h"

namespace zentab::editor {

/// Which of two axes are logarithmic.
struct AxisKinds {
  bool load = true;
  bool time = true;

  [[nodiscard]] bool AreLogarithmic() const { return load && time; }
  friend bool operator==(const AxisKinds&, const AxisKinds&) = default;
};

/// Which axes can be logarithmic of those that are wanted so, by whether every value on them is
/// above zero. Where both are wanted they are so together or not at all.
[[nodiscard]] AxisKinds PossibleKinds(AxisKinds wanted, bool loadsPositive, bool timesPositive);

/// What the numbers of the load axis are.
enum class LoadUnit { AsInGrid, Multiples, Absolute };

/// The axes as the user wants them, whatever table is shown.
struct ChartAxes {
  AxisKinds logarithmic;  // where the values allow
  LoadUnit unit = LoadUnit::AsInGrid;
  std::optional<Range> loads;   // limits by hand
  bool absoluteLimits = false;  // those of loads are in amperes or volts, not multiples
  std::optional<Range> times;   // limits by hand, s
  bool squareDecades = false;   // as on log paper: of one length on both axes
  bool pickupLine = true;

  friend bool operator==(const ChartAxes&, const ChartAxes&) = default;
};

/// The same for the table in the grid, limits in its units.
struct ViewAxes {
  AxisKinds logarithmic;
  std::optional<Range> loads;
  std::optional<Range> times;
  bool squareDecades = false;
  double loadFactor = 1.0;  // from the grid's loads to those that the axis is labelled with

  friend bool operator==(const ViewAxes&, const ViewAxes&) = default;
};

/// The pickup value; nothing when its text is no number above zero.
[[nodiscard]] std::optional<double> PickupOf(const ValueModes& modes);

/// What the axes are for a table of these modes. Limits and a unit that would need a pickup value,
/// which there is none of, are left out.
[[nodiscard]] ViewAxes AxesFor(const ChartAxes& wanted, const ValueModes& modes);

/// Whether the load axis is labelled in amperes or volts.
[[nodiscard]] bool ShowsAbsoluteLoads(const ChartAxes& wanted, const ValueModes& modes);

/// From the grid's loads to absolute ones (or multiples of the pickup value); nothing without a
/// pickup value where they are not such already.
[[nodiscard]] std::optional<double> LoadFactor(const ValueModes& modes, bool toAbsolute);

/// Takes limits over as the user gives them: in the axis' own units, times in those of the grid.
/// Limits that are no range, or that a logarithmic axis has no place for, are dropped.
void SetLimits(ChartAxes& axes, const ValueModes& modes, const std::optional<Range>& loads,
               const std::optional<Range>& times);

}  // namespace zentab::editor

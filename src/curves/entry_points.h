#pragma once

#include <optional>
#include <vector>

#include "curves/assessment.h"
#include "curves/table_curve.h"
#include "tables/curve_table_entry.h"
#include "tables/entry_line.h"

namespace zentab::curves {

inline constexpr double kMillisecondsPerSecond = 1000.0;

/// A table's numbers and how they are meant.
struct EntryPoints {
  std::vector<Point> points;  // times as they are stored
  bool milliseconds = false;
  bool absolute = false;
  tables::Instrument instrument = tables::Instrument::None;

  /// The points with their times in s.
  [[nodiscard]] std::vector<Point> InSeconds() const;
};

/// An entry's numbers as the grid takes them: a text that is no number counts as 0.
[[nodiscard]] EntryPoints PointsOf(const tables::ParsedEntry& entry);

/// A table as what others are held against, for loads in amperes or volts (`absolute`) or in
/// multiples of the pickup value. PickupNeeded where that is needed to convert one into the other,
/// BadSetting where it is not above zero, and the faults of TableCurve::Of.
[[nodiscard]] Outcome<Reference> ReferenceOf(const EntryPoints& table, bool absolute,
                                             std::optional<double> pickup);

}  // namespace zentab::curves

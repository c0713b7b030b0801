#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/curve_grid.h"
#include "editor/value_modes.h"
#include "tables/curve_table_entry.h"
#include "texts/catalogue_texts.h"

namespace zentab::testset {

/// Where a reference graph is handed to the modules, below the installation folder.
inline constexpr std::string_view kGraphFile = "data\\currtmp.grh";

/// A point of a reference graph: amperes or volts, seconds.
using GraphPoint = editor::ScaledPoint;

/// A straight line of a reference graph.
struct GraphSegment {
  GraphPoint start;
  GraphPoint end;

  friend bool operator==(const GraphSegment&, const GraphSegment&) = default;
};

/// A graph's coordinate as GRH files have it: 12.500000.
[[nodiscard]] std::string CoordinateText(double coordinate);

/// Which extension points a curve of so many points gets: none when the grid is full, and the
/// last one only where both fit.
struct Extensions {
  bool first = false;
  bool last = false;
};
[[nodiscard]] Extensions ExtensionsFor(std::size_t points, const texts::InstrumentTexts& texts);

/// The extension points of an instrument beside the curve's first and last point, as number
/// texts: a coordinate that the instrument's texts leave open is that of the curve's point.
[[nodiscard]] tables::CurvePoint FirstExtension(const texts::InstrumentTexts& texts,
                                                const tables::CurvePoint& point);
[[nodiscard]] tables::CurvePoint LastExtension(const texts::InstrumentTexts& texts,
                                               const tables::CurvePoint& point);

/// The lines that join the grid's points, down to the first row with an empty cell, and the
/// extension points of the instrument. Nothing when row 1 has an empty cell. The separator is that
/// of the grid alone; the texts of the modes have "." or ",".
[[nodiscard]] std::optional<std::vector<GraphSegment>> SegmentsOf(
    const editor::CurveGrid& grid, const editor::ValueModes& modes,
    const texts::InstrumentTexts& texts, std::string_view localeDecimalSeparator);

}  // namespace zentab::testset

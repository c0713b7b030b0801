#pragma once

#include <vector>

#include "editor/value_modes.h"
#include "tables/curve_table_entry.h"
#include "testset/reference_graph.h"
#include "texts/catalogue_texts.h"

namespace zentab::testset {

/// A reference graph as points of the grid.
struct ImportedGraph {
  std::vector<tables::CurvePoint> points;  // at most kMaxPoints, in the value modes, with "."
  std::vector<GraphPoint> skipped;         // as they stand in the graph
};

/// Whether a reference graph can be brought to the value modes: relative loads need a pickup value
/// other than 0.
[[nodiscard]] bool CanImport(const editor::ValueModes& modes);

/// Undoes what makes a reference graph of a grid: joins the segments to points, takes off the
/// extension points of the instrument, and brings loads and times back to the value modes. A
/// point is skipped when its segment does not begin where the last point taken stands, or when
/// the grid is full. Of all numbers that the graph's six decimals may come from, the shortest is
/// taken: what was typed, not what it was rounded to.
[[nodiscard]] ImportedGraph ImportGraph(const std::vector<GraphSegment>& segments,
                                        const editor::ValueModes& modes,
                                        const texts::InstrumentTexts& texts);

}  // namespace zentab::testset

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "editor/curve_grid.h"
#include "tables/curve_table_entry.h"

namespace zentab::editor {

/// The number a cell shows, whether it is written with the locale's decimal separator, "," or ".":
/// the longest leading part that is a number; nothing when there is none.
[[nodiscard]] std::optional<double> CellNumber(std::string_view cell,
                                               std::string_view localeDecimalSeparator);

/// Empties the grid and writes the points of a table file into it from row 1, each number in the
/// user's form; a text that is no number shows as 0. Points beyond the last row are dropped.
void ShowPoints(CurveGrid& grid, const std::vector<tables::CurvePoint>& points,
                std::string_view localeDecimalSeparator);

/// The cells of all 26 rows, empty ones included, with "." as decimal separator.
[[nodiscard]] std::vector<tables::CurvePoint> PointRows(const CurveGrid& grid,
                                                        std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

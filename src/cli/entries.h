#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "editor/curve_grid.h"
#include "tables/curve_table_entry.h"

namespace zentab::cli {

/// An entry of a table file by its place.
struct FoundEntry {
  std::size_t line;  // from 0
  std::string name;
};

/// Finds an entry: "#N" is line number N from 0, if it has a name; any other text a name, letters
/// compared without case, of which the first counts. Nothing when there is none.
[[nodiscard]] std::optional<FoundEntry> FindEntry(const std::filesystem::path& file,
                                                  const std::string& entry);

/// Curve points as text, one a line: LOAD<TAB>TIME, numbers with ".". Lines that are empty or
/// begin with "#" are passed over.
struct PointLines {
  std::vector<tables::CurvePoint> points;
  std::string error;  // of the first line at fault; empty: none
};
[[nodiscard]] PointLines ReadPointLines(std::string_view text);

/// The grid's rows down to the last one that is not empty, as such lines.
[[nodiscard]] std::string GridLines(const editor::CurveGrid& grid);

}  // namespace zentab::cli

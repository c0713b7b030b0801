#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "editor/curve_grid.h"
#include "tables/curve_table_entry.h"
#include "tables/table_listing.h"

namespace zentab::cli {

/// An entry of a listed table file.
struct FoundEntry {
  std::size_t line = 0;  // from 0
  std::string name;
};

/// Finds entries: "#N" is line number N from 0, if it has a name; any other text a name, letters
/// compared without case, of which the first counts. One for each that is wanted, nothing where
/// there is none.
[[nodiscard]] std::vector<std::optional<FoundEntry>> FindEntries(
    const tables::TableListing& listing, const std::vector<std::string>& wanted);

/// An entry of a table file, as it is read once.
struct EntryOfFile {
  tables::TableListing listing;
  std::optional<FoundEntry> found;
  tables::EntryMark mark = {tables::kNoLine, 0};  // of what was found
};
[[nodiscard]] std::error_code FindEntry(const std::filesystem::path& file, const std::string& entry,
                                        EntryOfFile& result);

/// The same with the entry's line; nothing when there is none.
struct EntryLine {
  std::string name;
  std::string line;  // UTF-8
};
[[nodiscard]] std::error_code ReadEntry(const std::filesystem::path& file, const std::string& entry,
                                        std::optional<EntryLine>& result);

/// Curve points as text, one a line: LOAD<TAB>TIME, numbers with ".". Lines that are empty or
/// begin with "#" are passed over.
struct PointLines {
  std::vector<tables::CurvePoint> points;
  std::string error;  // of the first line at fault, or of reading; empty: none
};
[[nodiscard]] PointLines ReadPointLines(const std::filesystem::path& file);

/// The grid's rows down to the last one that is not empty, as such lines. `decimalSeparator` is
/// that of the grid.
[[nodiscard]] std::string GridLines(const editor::CurveGrid& grid,
                                    std::string_view decimalSeparator);

}  // namespace zentab::cli

#pragma once

#include <cstddef>
#include <span>
#include <system_error>

#include "tables/line_change.h"

namespace zentab::tables {

/// The change that puts the lines of a listed file into another order, for TableWriter::Make, which
/// also takes it back: `order` holds the number (from 0) of each line, in the place that the line
/// is to have. Line ends stay in their places. Only the stretch of the file that the order touches
/// belongs to the change; `before` is empty where it touches none. Fails with
/// std::errc::invalid_argument when a line is missing in `order` or named twice, kEntryChanged when
/// the file is no longer the one listed, and with what the system says.
[[nodiscard]] std::error_code OrderOf(platform::FileLayer& files, const std::filesystem::path& file,
                                      const TableListing& listing,
                                      std::span<const std::size_t> order, LineChange& change);

/// The same for one line, which is to stand at `place` (from 0) once it is moved.
[[nodiscard]] std::error_code MoveOf(platform::FileLayer& files, const std::filesystem::path& file,
                                     TableListing& listing, EntryMark& mark, std::size_t place,
                                     LineChange& change);

}  // namespace zentab::tables

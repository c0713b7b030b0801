#pragma once

#include <cstddef>
#include <span>
#include <system_error>
#include <vector>

#include "tables/line_change.h"

namespace zentab::tables {

/// The change that takes lines of a listed file out of it, for TableWriter::Make, which also takes
/// it back. `lines` are their numbers, from 0, in ascending order. All lines from the first to the
/// last of them belong to the change. Fails with std::errc::invalid_argument when there are none or
/// one of them is not there, kEntryChanged when the file is no longer the one listed, and with what
/// the system says.
[[nodiscard]] std::error_code RemovalOf(platform::FileLayer& files,
                                        const std::filesystem::path& file,
                                        const TableListing& listing,
                                        std::span<const std::size_t> lines, LineChange& change);

/// The same that puts a copy of each of the lines behind it, under a name that is free: "NAME #2",
/// or the next number. The copies stand in `copies`, by the numbers that their lines will have.
/// Fails, too, with std::errc::not_supported when a name cannot be given to a line.
[[nodiscard]] std::error_code CopiesOf(platform::FileLayer& files,
                                       const std::filesystem::path& file,
                                       const TableListing& listing,
                                       std::span<const std::size_t> lines, LineChange& change,
                                       std::vector<std::size_t>& copies);

}  // namespace zentab::tables

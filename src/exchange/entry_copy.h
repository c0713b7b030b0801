#pragma once

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "tables/table_listing.h"
#include "tables/table_writer.h"

namespace zentab::exchange {

/// What became of a copy.
struct CopyResult {
  std::error_code error;
  std::size_t copied = 0;  // lines that were added; none after an error
};

/// Adds lines of the table file `source` to the end of the table file `target`: line number n
/// (from 0) when `selected[n]` is set, each byte for byte as it stands, with CR LF behind it. A
/// last line of the target without a line end gets one first. A missing target is created, but
/// only for lines to be copied; selected lines that the source does not have are left out. The
/// two may be the same file. Fails with tables::kEntryChanged when the source is no longer the
/// file that was listed, from which the lines were selected. After an error the target is as
/// it was.
[[nodiscard]] CopyResult CopyEntries(tables::TableWriter& writer,
                                     const std::filesystem::path& source,
                                     const tables::TableListing& listed,
                                     const std::vector<bool>& selected,
                                     const std::filesystem::path& target);

}  // namespace zentab::exchange

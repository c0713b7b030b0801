#pragma once

#include <string>
#include <vector>

#include "interchange/curve_csv.h"
#include "interchange/library_text.h"

namespace zentab::interchange {

enum class ExportFormat { Csv, Json };

/// The entries of a table file's lines in a format: `chosen` has an element for each line; lines
/// without a name are not to be among them. As CSV an empty row stands between two entries. Takes
/// time in proportion to the lines.
[[nodiscard]] std::string Exported(const LibraryText& text, const std::vector<bool>& chosen,
                                   ExportFormat format, const CsvNotation& notation);

}  // namespace zentab::interchange

#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "interchange/library_json.h"
#include "tables/table_writer.h"

namespace zentab::interchange {

/// Adds entries, all or none of them, with the lines that they have, to the end of the table file
/// `target`; a missing one is created, beginning with a byte-order mark where the library has one.
/// `source` is the file that they come from, empty where there is none. Fails with
/// std::errc::file_exists when the target has one of the names already, letters compared without
/// case; `taken` is that name.
[[nodiscard]] std::error_code AddEntries(tables::TableWriter& writer,
                                         const std::filesystem::path& target,
                                         const std::filesystem::path& source,
                                         const JsonLibrary& library, std::string& taken);

/// An entry with the line that is written for it. A line break in its name becomes a blank.
[[nodiscard]] JsonEntry NewEntry(tables::CurveTableEntry entry);

}  // namespace zentab::interchange

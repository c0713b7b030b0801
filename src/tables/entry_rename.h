#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "tables/line_change.h"

namespace zentab::tables {

/// The line (a file's bytes) with another name (UTF-8) and everything else as it was, in the
/// encoding that it has where the name has a place in it. Nothing where the line has no name, or
/// would be read back as another name or with other points: a name with '"' or "(" is of that kind.
[[nodiscard]] std::optional<std::string> RenamedLine(std::string_view bytes, std::string_view name);

/// The change that gives an entry another name, for TableWriter::Make, which also takes it back;
/// its line keeps its line end. Fails with kEntryChanged when no line holds what the mark's did,
/// std::errc::file_exists when another entry has the name, letters compared without case, and
/// std::errc::invalid_argument when the name cannot be one. Made later, the change fails with
/// kEntryChanged when the name is taken by then.
[[nodiscard]] std::error_code RenameOf(platform::FileLayer& files,
                                       const std::filesystem::path& file, TableListing& listing,
                                       EntryMark& mark, std::string_view name, LineChange& change);

}  // namespace zentab::tables

#pragma once

#include <optional>
#include <system_error>

#include "app/session.h"
#include "tables/line_change.h"
#include "tables/table_writer.h"

namespace zentab::app {

/// Makes a change of the active table file, as of TableWriter::Make. When it takes the entry in the
/// grid out of the file, the grid holds none.
[[nodiscard]] std::error_code MakeChange(const tables::LineChange& change, Session& session,
                                         tables::TableWriter& writer);

/// The same, and follows the selection: `selected` is the entry that
/// the user has selected, and then the one to be selected: the same where it is still there, else
/// the first that was changed, or one that is nowhere.
[[nodiscard]] std::error_code ChangeLibrary(const tables::LineChange& change, Session& session,
                                            tables::TableWriter& writer,
                                            tables::EntryMark& selected);

}  // namespace zentab::app

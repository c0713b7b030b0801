#pragma once

#include <string>
#include <vector>

#include "interchange/library_text.h"

namespace zentab::interchange {

/// Two libraries made from one, put together again.
struct MergedLibrary {
  std::string bytes;                   // the table file
  std::vector<std::string> conflicts;  // names of entries that both sides changed differently
};

/// What was changed, added or removed since `base` on one side only is taken over; where both sides
/// did something else with an entry it is a conflict, and what `ours` has, or has not, stays.
/// Entries go by their names, letters compared without case. The order is that of `ours`, new ones
/// of `theirs` at the end; lines without a name are those of `ours`. A byte-order mark stays, and
/// each line keeps its bytes and its line end, one that has none getting CR LF where another line
/// follows. Takes time in proportion to the entries.
[[nodiscard]] MergedLibrary Merge(const LibraryText& base, const LibraryText& ours,
                                  const LibraryText& theirs);

}  // namespace zentab::interchange

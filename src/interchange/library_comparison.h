#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "interchange/library_text.h"

namespace zentab::interchange {

/// How an entry of one library differs from the one of the same name in another.
enum class Difference { Added, Removed, Changed };

struct EntryDifference {
  Difference kind;
  std::string name;              // of an entry that was changed, the former one
  std::size_t before = kNoLine;  // its lines, from 0; kNoLine where it has none
  std::size_t after = kNoLine;

  friend bool operator==(const EntryDifference&, const EntryDifference&) = default;
};

/// What became of a library: entries that are gone or say something else, in the order of `before`,
/// then new ones in the order of `after`. Entries go by their names, letters compared without case;
/// their order, and lines without a name, do not count. Takes time in proportion to the entries.
[[nodiscard]] std::vector<EntryDifference> Compare(const LibraryText& before,
                                                   const LibraryText& after);

}  // namespace zentab::interchange

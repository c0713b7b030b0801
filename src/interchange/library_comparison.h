#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "interchange/name_index.h"
#include "tables/table_listing.h"

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

/// A table file to be compared; one that is not there is an empty library.
struct ComparedFile {
  std::filesystem::path path;
  tables::TableListing listing;  // as it was compared; without the names
};

/// What became of a library: entries that are gone or say something else, in the order of `before`,
/// then new ones in the order of `after`. Entries go by their names, letters compared without case;
/// their order, and lines without a name, do not count. Lists both files, and reads a second time
/// only lines that differ. Takes time in proportion to the files. Fails with what the system says,
/// and with tables::kEntryChanged when someone has replaced one of them meanwhile.
[[nodiscard]] std::error_code Compare(platform::FileLayer& files, ComparedFile& before,
                                      ComparedFile& after,
                                      std::vector<EntryDifference>& differences);

/// The lines of a difference (a table file's bytes), each empty where its side has none. Fails as
/// Compare does.
struct DifferentLines {
  std::string before;
  std::string after;
};
[[nodiscard]] std::error_code ReadDifference(platform::FileLayer& files, const ComparedFile& before,
                                             const ComparedFile& after,
                                             const EntryDifference& difference,
                                             DifferentLines& lines);

}  // namespace zentab::interchange

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "tables/table_listing.h"

namespace zentab::tables {

/// A change of a table file that can be made again or taken back: lines with their line ends, byte
/// for byte, in the place of others. Either of the two may be empty, where lines were added or
/// removed.
struct LineChange {
  std::filesystem::path file;
  std::uint64_t offset = 0;  // of the place in the file, in bytes, when the change was made
  std::string before;
  std::string after;
  // The hashes of the lines in front of and behind the place, by which it is found when lines are
  // to be put back. Lines are put at the file's end where neither is known.
  std::optional<std::uint64_t> inFront;
  std::optional<std::uint64_t> behind;
  // Whether a line end was written in front of the lines, which goes with them again.
  bool endsLine = false;
  // Whether an entry of the same name as one that is put back, or that another one gets, is a
  // reason not to do so: someone else has added it meanwhile.
  bool needsFreeName = false;

  /// What takes this change back.
  [[nodiscard]] LineChange Reversed() const {
    LineChange reversed = *this;
    std::swap(reversed.before, reversed.after);
    return reversed;
  }
};

/// Bytes of a file from `begin` up to `end`.
struct BytePlace {
  std::uint64_t begin;
  std::uint64_t end;
};

/// The change that replaces line `index` of a listed file; `before` and `after` are still to be
/// filled.
[[nodiscard]] LineChange ChangeOfLine(const std::filesystem::path& file,
                                      const TableListing& listing, std::size_t index);

/// Whether no other entry has exactly this one's name. Takes time in proportion to the names.
[[nodiscard]] bool IsOnlyOneOfItsName(const TableListing& listing, std::size_t index);

/// Where the lines of `before` stand now, or those of `after` belong; nothing when they are no
/// longer there, or the name that is needed is taken.
[[nodiscard]] std::optional<BytePlace> PlaceFor(const LineChange& change,
                                                const TableListing& listing);

/// The first entry of `after`, in a listing made since the change; nothing when there is none.
[[nodiscard]] std::optional<EntryMark> FirstEntry(const LineChange& change,
                                                  const TableListing& listing);

}  // namespace zentab::tables

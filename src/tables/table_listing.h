#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"
#include "tables/curve_table_entry.h"

namespace zentab::tables {

/// Called again and again during work that may last; may be empty.
using KeepAlive = std::function<void()>;

/// Where a line of a table file begins, and what it holds, as a hash of its text.
struct LineMark {
  std::uint64_t offset;  // bytes from the file's start
  std::uint64_t hash;
};

/// The hash of a line without its line end. Two lines that differ have one hash with a chance of
/// about 2^-64; it is made for speed, not against an opponent.
[[nodiscard]] std::uint64_t HashOf(std::string_view line);

/// An entry as the user was shown it: its place in the list, and the hash of its line. Whatever
/// happens to the file, a command meant for it finds the same line or none.
struct EntryMark {
  std::size_t index;
  std::uint64_t hash;
};

/// The index of an entry that is nowhere in the listing.
inline constexpr std::size_t kNoLine = std::numeric_limits<std::size_t>::max();

/// A table file as it was when it was read: the names of its entries, one for each line that has
/// one, in file order, and a mark for each line. The position of a name counts as its line's
/// number in the operations on a library; lines without a name shift that for the lines behind
/// them, which is accepted.
struct TableListing {
  std::optional<platform::FileStamp> stamp;  // nothing: there was no such file
  std::vector<std::string> names;
  std::vector<Instrument> instruments;  // of the entries, one for each name
  std::vector<LineMark> lines;
  std::vector<std::size_t> nameless;  // the numbers, from 0, of the lines without a name
  std::uint64_t end = 0;              // the offset behind the last line
  std::size_t readings = 0;           // how often the file was read into this listing

  /// The offset behind line `index` and its line end.
  [[nodiscard]] std::uint64_t EndOf(std::size_t index) const;
  /// The mark of an entry of the list; one that is not in it has no line to be found again.
  [[nodiscard]] EntryMark MarkOf(std::size_t index) const;
  /// The number of the line that an entry of the list really stands in, by its place among the
  /// names, and the mark of that line; kNoLine for one that is not in the list.
  [[nodiscard]] std::size_t LineOf(std::size_t name) const;
  [[nodiscard]] EntryMark MarkOfName(std::size_t name) const { return MarkOf(LineOf(name)); }
  /// The place among the names of the entry in a line; kNoLine where the line has none.
  [[nodiscard]] std::size_t NameIn(std::size_t line) const;
  /// Where the entry's line stands now: the nearest one of the same text, or kNoLine.
  [[nodiscard]] std::size_t PlaceOf(const EntryMark& mark) const;
  /// Whether one of the names equals `name`, letters of any alphabet compared without case.
  [[nodiscard]] bool HasName(std::string_view name, const KeepAlive& keepAlive = {}) const;
  /// The first of some names that one of the entries has, compared in the same way.
  [[nodiscard]] std::optional<std::string> FirstTaken(const std::vector<std::string>& wanted) const;
};

/// Reads a table file. A missing one has no lines and no stamp. Fails, and leaves the listing as it
/// is, when the file cannot be read to its end.
[[nodiscard]] std::error_code ListEntries(platform::FileLayer& files,
                                          const std::filesystem::path& file, TableListing& listing);

/// The same when the file is no longer the one listed; the listing's `readings` tell.
[[nodiscard]] std::error_code Refresh(platform::FileLayer& files, const std::filesystem::path& file,
                                      TableListing& listing);

/// What an operation fails with that has not found the line of its mark.
inline constexpr std::errc kEntryChanged = std::errc::operation_canceled;

/// Reads the line of a mark, as the file's bytes without the line end. When the file is no longer
/// the one listed, it is listed anew and the mark follows its line. Fails with kEntryChanged when
/// no line holds the same text, and with what the system says when the file cannot be read.
[[nodiscard]] std::error_code ReadLine(platform::FileLayer& files,
                                       const std::filesystem::path& file, TableListing& listing,
                                       EntryMark& mark, std::string& bytes);

/// The same line as UTF-8.
[[nodiscard]] std::error_code ReadEntryLine(platform::FileLayer& files,
                                            const std::filesystem::path& file,
                                            TableListing& listing, EntryMark& mark,
                                            std::string& line);

}  // namespace zentab::tables

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

#include "platform/file_stamp.h"

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

/// A table file as it was when it was read: the names of its entries, one for each line that has
/// one, in file order, and a mark for each line. The position of a name counts as its line's
/// number in the operations on a library; lines without a name shift that for the lines behind
/// them, which is accepted.
struct TableListing {
  std::optional<platform::FileStamp> stamp;  // nothing: there was no such file
  std::vector<std::string> names;
  std::vector<LineMark> lines;
  std::vector<std::size_t> nameless;  // the numbers, from 0, of the lines without a name
  std::uint64_t end = 0;              // the offset behind the last line
  std::size_t readings = 0;           // how often the file was read into this listing

  /// The offset behind line `index` and its line end.
  [[nodiscard]] std::uint64_t EndOf(std::size_t index) const;
  /// Whether one of the names equals `name`, letters of any alphabet compared without case.
  [[nodiscard]] bool HasName(std::string_view name, const KeepAlive& keepAlive = {}) const;
};

/// The index of an entry that is nowhere in the listing.
inline constexpr std::size_t kNoLine = std::numeric_limits<std::size_t>::max();

/// Reads a table file. A missing or unreadable file has no lines and no stamp.
[[nodiscard]] TableListing ListEntries(const std::filesystem::path& file,
                                       const KeepAlive& keepAlive = {});

/// Lists the file anew. `index` follows its line: the nearest line of the same text, else the first
/// entry of the same name, else kNoLine. A file that is
/// there but cannot be read at the moment leaves both as they are: false.
bool ListAgain(const std::filesystem::path& file, TableListing& listing, std::size_t& index,
               const KeepAlive& keepAlive = {});

/// The same when it is no longer the file listed; whether it was listed anew.
bool Refresh(const std::filesystem::path& file, TableListing& listing, std::size_t& index,
             const KeepAlive& keepAlive = {});

/// What an operation fails with that has not found the line which the listing holds at its index.
inline constexpr std::errc kEntryChanged = std::errc::operation_canceled;

/// Reads line `index` of the listing, as the file's bytes without the line end. When the file is no
/// longer the one listed, it is listed anew and `index` follows as in Refresh. Fails with
/// kEntryChanged when no line holds the same text, and with std::errc::io_error when the file
/// cannot be read.
[[nodiscard]] std::error_code ReadLine(const std::filesystem::path& file, TableListing& listing,
                                       std::size_t& index, std::string& bytes,
                                       const KeepAlive& keepAlive = {});

/// The same line as UTF-8.
[[nodiscard]] std::error_code ReadEntryLine(const std::filesystem::path& file,
                                            TableListing& listing, std::size_t& index,
                                            std::string& line, const KeepAlive& keepAlive = {});

}  // namespace zentab::tables

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"

namespace zentab::interchange {

/// The number of a line that is not there.
inline constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

/// A table file in memory, every byte of it.
class LibraryText {
 public:
  /// Reads a table file. Fails with what the system says, also when there is none.
  [[nodiscard]] static std::error_code Read(platform::FileLayer& files,
                                            const std::filesystem::path& file, LibraryText& result);

  /// Whether a byte-order mark stands in front of the lines.
  [[nodiscard]] bool HasByteOrderMark() const { return hasMark_; }
  [[nodiscard]] std::size_t LineCount() const { return lines_.size(); }
  /// A line's bytes without its line end, and the line end: CR LF, LF, CR, or nothing at the end
  /// of the file.
  [[nodiscard]] std::string_view Line(std::size_t line) const;
  [[nodiscard]] std::string_view Ending(std::size_t line) const;

 private:
  struct Place {
    std::size_t begin;
    std::size_t length;
    std::size_t ending;
  };

  void Split(std::size_t begin);

  std::string bytes_;
  std::vector<Place> lines_;
  bool hasMark_ = false;
};

/// The entries of a table file by their names, letters compared without case. A name that several
/// entries have counts once for each of them, in their order.
class NameIndex {
 public:
  explicit NameIndex(const LibraryText& library);

  /// How many entries there are, and of each its name and line.
  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  [[nodiscard]] const std::string& Name(std::size_t entry) const { return entries_[entry].name; }
  [[nodiscard]] std::size_t Line(std::size_t entry) const { return entries_[entry].line; }
  /// The line of the entry that goes by the same name as an entry of another file; kNoLine when
  /// there is none.
  [[nodiscard]] std::size_t LineOf(const NameIndex& other, std::size_t entry) const;

 private:
  struct Entry {
    std::string name;
    std::size_t line;
    std::uint64_t hash;          // of the folded name and the occurrence
    std::size_t occurrence = 0;  // of the name, from 0
    std::size_t more = 0;        // of a first one, how many follow
  };

  [[nodiscard]] std::size_t Find(const Entry& entry) const;
  void Insert(std::size_t entry);

  std::vector<Entry> entries_;
  std::vector<std::size_t> buckets_;  // places in entries_ plus 1, 0 for none; a power of two
};

}  // namespace zentab::interchange

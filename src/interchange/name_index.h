#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zentab::interchange {

/// The number of a line that is not there.
inline constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

/// The names of a table file's entries, and the number, from 0, of the line of each.
struct NamedLines {
  std::vector<std::string> names;
  std::vector<std::size_t> lines;
};

/// Entries by their names, letters compared without case. A name that several entries have counts
/// once for each of them, in their order. Two names are taken for one with a chance of about 2^-64,
/// as by tables::HashOf.
class NameIndex {
 public:
  /// The entries have to outlive the index.
  explicit NameIndex(const NamedLines& entries);

  /// How many entries there are, and of each its name and line.
  [[nodiscard]] std::size_t Count() const { return entries_.names.size(); }
  [[nodiscard]] const std::string& Name(std::size_t entry) const { return entries_.names[entry]; }
  [[nodiscard]] std::size_t Line(std::size_t entry) const { return entries_.lines[entry]; }
  /// The entry that goes by the same name as an entry of another file, and its line; kNoLine when
  /// there is none.
  [[nodiscard]] std::size_t EntryOf(const NameIndex& other, std::size_t entry) const;
  [[nodiscard]] std::size_t LineOf(const NameIndex& other, std::size_t entry) const;

 private:
  [[nodiscard]] std::size_t PlaceOf(std::uint64_t hash) const;

  const NamedLines& entries_;
  std::vector<std::uint64_t> hashes_;  // of the folded names, told apart by their occurrence
  // Numbers of entries plus 1, 0 for none; a power of two, at most half of them taken. Small, as
  // memory that is new costs more than all the rest.
  std::vector<std::uint32_t> buckets_;
};

}  // namespace zentab::interchange

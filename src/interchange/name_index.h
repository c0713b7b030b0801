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
/// once for each of them, in their order.
class NameIndex {
 public:
  explicit NameIndex(NamedLines entries);

  /// How many entries there are, and of each its name and line.
  [[nodiscard]] std::size_t Count() const { return entries_.names.size(); }
  [[nodiscard]] const std::string& Name(std::size_t entry) const { return entries_.names[entry]; }
  [[nodiscard]] std::size_t Line(std::size_t entry) const { return entries_.lines[entry]; }
  /// The line of the entry that goes by the same name as an entry of another file; kNoLine when
  /// there is none.
  [[nodiscard]] std::size_t LineOf(const NameIndex& other, std::size_t entry) const;

 private:
  // The entry of a name; kNoLine when there is none.
  [[nodiscard]] std::size_t Find(std::uint64_t hash, const std::string& name) const;
  void Insert(std::size_t entry, std::vector<std::size_t>& repeated);

  NamedLines entries_;
  std::vector<std::uint64_t> hashes_;  // of the folded names, told apart by their occurrence
  std::vector<std::size_t> buckets_;   // numbers of entries plus 1, 0 for none; a power of two
};

}  // namespace zentab::interchange

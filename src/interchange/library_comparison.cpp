#include "interchange/library_comparison.h"

#include "interchange/entry_meaning.h"

namespace zentab::interchange {

std::vector<EntryDifference> Compare(const LibraryText& before, const LibraryText& after) {
  const NameIndex former(before);
  const NameIndex present(after);
  std::vector<EntryDifference> differences;
  for (std::size_t entry = 0; entry < former.Count(); ++entry) {
    const std::size_t line = former.Line(entry);
    const std::size_t now = present.LineOf(former, entry);
    if (now == kNoLine) {
      differences.push_back({Difference::Removed, former.Name(entry), line, kNoLine});
    } else if (!LinesSayTheSame(before.Line(line), after.Line(now))) {
      differences.push_back({Difference::Changed, former.Name(entry), line, now});
    }
  }
  for (std::size_t entry = 0; entry < present.Count(); ++entry) {
    if (former.LineOf(present, entry) != kNoLine) continue;
    differences.push_back({Difference::Added, present.Name(entry), kNoLine, present.Line(entry)});
  }
  return differences;
}

}  // namespace zentab::interchange

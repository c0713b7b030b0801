#include "interchange/library_comparison.h"

#include "interchange/entry_meaning.h"
#include "platform/file_reader.h"

namespace zentab::interchange {
namespace {

// Takes the names out of the listing.
NamedLines TakeNames(tables::TableListing& listing) {
  NamedLines entries = {std::move(listing.names), {}};
  entries.lines.reserve(entries.names.size());
  auto nameless = listing.nameless.begin();
  for (std::size_t line = 0; line < listing.lines.size(); ++line) {
    if (nameless != listing.nameless.end() && *nameless == line) {
      ++nameless;
    } else {
      entries.lines.push_back(line);
    }
  }
  return entries;
}

// Reads single lines of a listed file.
class LineSource {
 public:
  LineSource(platform::FileLayer& files, const ComparedFile& file)
      : listing_(file.listing), reader_(files, file.path) {}

  std::error_code Read(std::size_t line, std::string& bytes) {
    if (reader_.Error()) return reader_.Error();
    if (reader_.Stamp() != listing_.stamp) return std::make_error_code(tables::kEntryChanged);
    const auto error = reader_.Read(listing_.lines[line].offset, listing_.EndOf(line), bytes);
    if (error) return error;
    bytes.resize(bytes.find_last_not_of("\r\n") + 1);
    return {};
  }

 private:
  const tables::TableListing& listing_;
  platform::FileReader reader_;
};

}  // namespace

std::error_code Compare(platform::FileLayer& files, ComparedFile& before, ComparedFile& after,
                        std::vector<EntryDifference>& differences) {
  for (ComparedFile* const file : {&before, &after}) {
    if (const auto error = tables::ListEntries(files, file->path, file->listing)) return error;
  }
  const NamedLines formerNames = TakeNames(before.listing);
  const NamedLines presentNames = TakeNames(after.listing);
  const NameIndex former(formerNames);
  const NameIndex present(presentNames);
  std::vector<bool> isKnown(present.Count());
  LineSource formerLines(files, before);
  LineSource presentLines(files, after);
  std::string line;
  std::string other;
  for (std::size_t entry = 0; entry < former.Count(); ++entry) {
    const std::size_t at = former.Line(entry);
    const std::size_t found = present.EntryOf(former, entry);
    if (found == kNoLine) {
      differences.push_back({Difference::Removed, former.Name(entry), at, kNoLine});
      continue;
    }
    isKnown[found] = true;
    const std::size_t now = present.Line(found);
    if (before.listing.lines[at].hash == after.listing.lines[now].hash) continue;
    if (const auto error = formerLines.Read(at, line)) return error;
    if (const auto error = presentLines.Read(now, other)) return error;
    if (LinesSayTheSame(line, other)) continue;
    differences.push_back({Difference::Changed, former.Name(entry), at, now});
  }
  for (std::size_t entry = 0; entry < present.Count(); ++entry) {
    if (isKnown[entry]) continue;
    differences.push_back({Difference::Added, present.Name(entry), kNoLine, present.Line(entry)});
  }
  return {};
}

std::error_code ReadDifference(platform::FileLayer& files, const ComparedFile& before,
                               const ComparedFile& after, const EntryDifference& difference,
                               DifferentLines& lines) {
  lines = {};
  std::error_code error;
  if (difference.before != kNoLine) {
    error = LineSource(files, before).Read(difference.before, lines.before);
  }
  if (error || difference.after == kNoLine) return error;
  return LineSource(files, after).Read(difference.after, lines.after);
}

}  // namespace zentab::interchange

#include "interchange/library_text.h"

#include <algorithm>
#include <bit>

#include "platform/ascii.h"
#include "platform/character_case.h"
#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "tables/table_listing.h"

namespace zentab::interchange {
namespace {

// Most names are plain ASCII; `folded` saves them a text of their own.
std::uint64_t HashOfName(const std::string& name, std::string& folded) {
  if (!platform::IsAscii(name)) return tables::HashOf(platform::LowerCase(name));
  folded.resize(name.size());
  std::ranges::transform(name, folded.begin(), platform::LowerAscii);
  return tables::HashOf(folded);
}

std::uint64_t WithOccurrence(std::uint64_t hash, std::size_t occurrence) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;  // odd: 2^64 by the golden ratio
  return hash + occurrence * kMultiplier;
}

}  // namespace

std::error_code LibraryText::Read(platform::FileLayer& files, const std::filesystem::path& file,
                                  LibraryText& result) {
  LibraryText text;
  platform::FileReader reader(files, file);
  if (reader.Error()) return reader.Error();
  if (const std::error_code error = reader.Read(0, reader.Size(), text.bytes_)) return error;
  text.hasMark_ = text.bytes_.starts_with(platform::kByteOrderMark);
  text.Split(text.hasMark_ ? platform::kByteOrderMark.size() : 0);
  result = std::move(text);
  return {};
}

void LibraryText::Split(std::size_t begin) {
  const std::string_view bytes = bytes_;
  std::size_t feed = bytes.find('\n', begin);
  std::size_t returned = bytes.find('\r', begin);
  while (begin < bytes.size()) {
    const std::size_t end = std::min({feed, returned, bytes.size()});
    const bool isPair = returned == end && feed == end + 1;
    const std::size_t ending = end == bytes.size() ? 0 : isPair ? 2 : 1;
    lines_.push_back({begin, end - begin, ending});
    begin = end + ending;
    if (feed < begin) feed = bytes.find('\n', begin);
    if (returned < begin) returned = bytes.find('\r', begin);
  }
}

std::string_view LibraryText::Line(std::size_t line) const {
  return std::string_view(bytes_).substr(lines_[line].begin, lines_[line].length);
}

std::string_view LibraryText::Ending(std::size_t line) const {
  return std::string_view(bytes_).substr(lines_[line].begin + lines_[line].length,
                                         lines_[line].ending);
}

NameIndex::NameIndex(const LibraryText& library)
    : buckets_(std::bit_ceil(2 * library.LineCount() + 1)) {
  entries_.reserve(library.LineCount());
  std::string folded;
  for (std::size_t line = 0; line < library.LineCount(); ++line) {
    std::optional<std::string> name = tables::ParseEntryName(library.Line(line));
    if (!name) continue;
    const std::uint64_t hash = HashOfName(*name, folded);
    entries_.push_back({*std::move(name), line, hash});
    Insert(entries_.size() - 1);
  }
}

void NameIndex::Insert(std::size_t entry) {
  Entry& added = entries_[entry];
  if (const std::size_t first = Find(added); first != kNoLine) {
    added.occurrence = ++entries_[first].more;
    added.hash = WithOccurrence(added.hash, added.occurrence);
  }
  std::size_t bucket = added.hash & (buckets_.size() - 1);
  while (buckets_[bucket] != 0) bucket = (bucket + 1) & (buckets_.size() - 1);
  buckets_[bucket] = entry + 1;
}

std::size_t NameIndex::Find(const Entry& entry) const {
  for (std::size_t bucket = entry.hash & (buckets_.size() - 1); buckets_[bucket] != 0;
       bucket = (bucket + 1) & (buckets_.size() - 1)) {
    const Entry& other = entries_[buckets_[bucket] - 1];
    if (other.hash != entry.hash || other.occurrence != entry.occurrence) continue;
    const bool isSame = other.name == entry.name ||
                        platform::LowerCase(other.name) == platform::LowerCase(entry.name);
    if (isSame) return buckets_[bucket] - 1;
  }
  return kNoLine;
}

std::size_t NameIndex::LineOf(const NameIndex& other, std::size_t entry) const {
  const std::size_t found = Find(other.entries_[entry]);
  return found == kNoLine ? kNoLine : entries_[found].line;
}

}  // namespace zentab::interchange

#include "tables/line_change.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/character_case.h"
#include "tables/entry_line.h"

namespace zentab::tables {
namespace {

// The text in front of the first line end, which is taken off together with it.
std::string_view NextLine(std::string_view& rest) {
  const std::size_t length = std::min(rest.size(), rest.find_first_of("\r\n"));
  const std::string_view line = rest.substr(0, length);
  rest.remove_prefix(length);
  rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
  return line;
}

std::vector<std::uint64_t> HashesOf(std::string_view lines) {
  std::vector<std::uint64_t> hashes;
  while (!lines.empty()) hashes.push_back(HashOf(NextLine(lines)));
  return hashes;
}

// The number of the line at an offset, or of the next one.
std::size_t LineAt(const TableListing& listing, std::uint64_t offset) {
  const auto at =
      std::lower_bound(listing.lines.begin(), listing.lines.end(), offset,
                       [](const LineMark& line, std::uint64_t to) { return line.offset < to; });
  return static_cast<std::size_t>(at - listing.lines.begin());
}

std::optional<BytePlace> PlaceOfLines(const LineChange& change, const TableListing& listing) {
  const std::vector<std::uint64_t> hashes = HashesOf(change.before);
  const std::size_t begin = listing.PlaceOf({LineAt(listing, change.offset), hashes.front()});
  if (begin == kNoLine || listing.lines.size() - begin < hashes.size()) return std::nullopt;
  const auto first = listing.lines.begin() + static_cast<std::ptrdiff_t>(begin);
  const bool isThere =
      std::equal(hashes.begin(), hashes.end(), first,
                 [](std::uint64_t hash, const LineMark& line) { return hash == line.hash; });
  if (!isThere) return std::nullopt;
  return BytePlace{first->offset, listing.EndOf(begin + hashes.size() - 1)};
}

// Between its former neighbours, else beside one of them.
std::uint64_t PlaceBetween(const LineChange& change, const TableListing& listing) {
  const std::size_t count = listing.lines.size();
  const std::size_t hint = LineAt(listing, change.offset);
  const auto isBehind = [&](std::size_t at) {
    return change.behind && at < count && listing.lines[at].hash == *change.behind;
  };
  const auto isInFront = [&](std::size_t at) {
    return change.inFront && at > 0 && at <= count && listing.lines[at - 1].hash == *change.inFront;
  };
  std::size_t best = hint;
  int bestNeighbours = 0;
  for (std::size_t at = 0; at <= count; ++at) {
    const int neighbours = (isBehind(at) ? 1 : 0) + (isInFront(at) ? 1 : 0);
    const auto away = [hint](std::size_t place) {
      return std::max(place, hint) - std::min(place, hint);
    };
    if (neighbours < bestNeighbours || neighbours == 0) continue;
    if (neighbours > bestNeighbours || away(at) < away(best)) best = at;
    bestNeighbours = neighbours;
  }
  return best < count ? listing.lines[best].offset : listing.end;
}

std::unordered_set<std::string> LowerNames(std::string_view lines) {
  std::unordered_set<std::string> names;
  while (!lines.empty()) {
    if (const auto name = ParseEntryName(NextLine(lines))) {
      names.insert(platform::LowerCase(*name));
    }
  }
  return names;
}

// What is called so before the change does not take the name from itself, in other letters, capital
// or small, either.
bool IsNameTaken(const LineChange& change, const TableListing& listing) {
  if (!change.needsFreeName) return false;
  std::unordered_set<std::string> added = LowerNames(change.after);
  for (const std::string& name : LowerNames(change.before)) added.erase(name);
  return listing.FirstTaken({added.begin(), added.end()}).has_value();
}

}  // namespace

LineChange ChangeOfLine(const std::filesystem::path& file, const TableListing& listing,
                        std::size_t index) {
  LineChange change;
  change.file = file;
  change.offset = listing.lines[index].offset;
  if (index > 0) change.inFront = listing.lines[index - 1].hash;
  if (index + 1 < listing.lines.size()) change.behind = listing.lines[index + 1].hash;
  return change;
}

bool IsOnlyOneOfItsName(const TableListing& listing, std::size_t index) {
  const std::vector<std::string>& names = listing.names;
  return index < names.size() && std::count(names.begin(), names.end(), names[index]) == 1;
}

std::optional<BytePlace> PlaceFor(const LineChange& change, const TableListing& listing) {
  if (IsNameTaken(change, listing)) return std::nullopt;
  if (!change.before.empty()) return PlaceOfLines(change, listing);
  const bool isAtEnd = !change.inFront && !change.behind;
  const std::uint64_t place = isAtEnd ? listing.end : PlaceBetween(change, listing);
  return BytePlace{place, place};
}

std::optional<EntryMark> FirstEntry(const LineChange& change, const TableListing& listing) {
  if (change.after.empty()) return std::nullopt;
  std::string_view rest = change.after;
  EntryMark mark = {LineAt(listing, change.offset), HashOf(NextLine(rest))};
  mark.index = listing.PlaceOf(mark);
  return mark.index < listing.names.size() ? std::optional(mark) : std::nullopt;
}

}  // namespace zentab::tables

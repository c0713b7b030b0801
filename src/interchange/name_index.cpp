#include "interchange/name_index.h"

#include <algorithm>
#include <bit>
#include <unordered_map>

#include "platform/ascii.h"
#include "platform/character_case.h"
#include "tables/table_listing.h"

namespace zentab::interchange {
namespace {

// Most names are plain ASCII; `folded` saves them a text of their own.
std::uint64_t HashOfName(const std::string& name, std::string& folded) {
  if (!platform::IsAscii(name)) return tables::HashOf(platform::LowerCase(name));
  folded.resize(name.size());
  std::ranges::transform(name, folded.begin(), [](char c) { return platform::LowerAscii(c); });
  return tables::HashOf(folded);
}

std::uint64_t WithOccurrence(std::uint64_t hash, std::size_t occurrence) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;  // odd: 2^64 by the golden ratio
  return hash + occurrence * kMultiplier;
}

}  // namespace

NameIndex::NameIndex(const NamedLines& entries)
    : entries_(entries), buckets_(std::bit_ceil(2 * entries_.names.size() + 1)) {
  hashes_.reserve(Count());
  std::unordered_map<std::uint32_t, std::size_t> repeated;  // by the first of a name
  std::string folded;
  for (std::size_t entry = 0; entry < Count(); ++entry) {
    std::uint64_t hash = HashOfName(Name(entry), folded);
    std::size_t place = PlaceOf(hash);
    if (buckets_[place] != 0) {
      hash = WithOccurrence(hash, ++repeated[buckets_[place]]);
      place = PlaceOf(hash);
    }
    buckets_[place] = static_cast<std::uint32_t>(entry + 1);
    hashes_.push_back(hash);
  }
}

// Where a hash is, or would be put.
std::size_t NameIndex::PlaceOf(std::uint64_t hash) const {
  auto place = static_cast<std::size_t>(hash & (buckets_.size() - 1));
  while (buckets_[place] != 0 && hashes_[buckets_[place] - 1] != hash) {
    place = (place + 1) & (buckets_.size() - 1);
  }
  return place;
}

std::size_t NameIndex::EntryOf(const NameIndex& other, std::size_t entry) const {
  const std::uint32_t found = buckets_[PlaceOf(other.hashes_[entry])];
  return found == 0 ? kNoLine : found - 1;
}

std::size_t NameIndex::LineOf(const NameIndex& other, std::size_t entry) const {
  const std::size_t found = EntryOf(other, entry);
  return found == kNoLine ? kNoLine : Line(found);
}

}  // namespace zentab::interchange

#include "interchange/name_index.h"

#include <algorithm>
#include <bit>

#include "platform/ascii.h"
#include "platform/character_case.h"
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

NameIndex::NameIndex(NamedLines entries)
    : entries_(std::move(entries)), buckets_(std::bit_ceil(2 * entries_.names.size() + 1)) {
  hashes_.reserve(Count());
  std::vector<std::size_t> repeated(Count());
  std::string folded;
  for (std::size_t entry = 0; entry < Count(); ++entry) {
    hashes_.push_back(HashOfName(Name(entry), folded));
    Insert(entry, repeated);
  }
}

void NameIndex::Insert(std::size_t entry, std::vector<std::size_t>& repeated) {
  if (const std::size_t first = Find(hashes_[entry], Name(entry)); first != kNoLine) {
    hashes_[entry] = WithOccurrence(hashes_[entry], ++repeated[first]);
  }
  std::size_t bucket = hashes_[entry] & (buckets_.size() - 1);
  while (buckets_[bucket] != 0) bucket = (bucket + 1) & (buckets_.size() - 1);
  buckets_[bucket] = entry + 1;
}

std::size_t NameIndex::Find(std::uint64_t hash, const std::string& name) const {
  for (std::size_t bucket = hash & (buckets_.size() - 1); buckets_[bucket] != 0;
       bucket = (bucket + 1) & (buckets_.size() - 1)) {
    const std::size_t entry = buckets_[bucket] - 1;
    if (hashes_[entry] != hash) continue;
    const bool isSame =
        Name(entry) == name || platform::LowerCase(Name(entry)) == platform::LowerCase(name);
    if (isSame) return entry;
  }
  return kNoLine;
}

std::size_t NameIndex::LineOf(const NameIndex& other, std::size_t entry) const {
  const std::size_t found = Find(other.hashes_[entry], other.Name(entry));
  return found == kNoLine ? kNoLine : Line(found);
}

}  // namespace zentab::interchange

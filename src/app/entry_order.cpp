#include "app/entry_order.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

#include "platform/ascii.h"
#include "platform/character_case.h"
#include "texts/characters.h"

namespace zentab::app {
namespace {

constexpr std::size_t kAliveEvery = 10'000;  // names, or comparisons

// The letters U+00DF to U+00FF, in UTF-8 behind 0xC3, by those that dictionaries sort them as.
constexpr std::size_t kFirstAccent = 0x9F;
constexpr std::array<std::string_view, 33> kPlain = {
    "ss", "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i",  "i", "i",
    "d",  "n", "o", "o", "o", "o", "o", "",   "o", "u", "u", "u", "u", "y", "th", "y"};

// A number as how many digits it has and the digits, without leading zeros.
std::size_t AppendNumber(std::string_view name, std::size_t at, std::string& key) {
  std::size_t end = at;
  while (end < name.size() && texts::IsDigit(name[end])) ++end;
  while (at + 1 < end && name[at] == '0') ++at;
  constexpr std::size_t kMostCounted = 255;
  key += '0';
  key += static_cast<char>(std::min(end - at, kMostCounted));
  key += name.substr(at, end - at);
  return end;
}

std::string KeyOfLower(std::string_view name) {
  std::string key;
  key.reserve(name.size() + 4);
  for (std::size_t at = 0; at < name.size();) {
    if (texts::IsDigit(name[at])) {
      at = AppendNumber(name, at, key);
      continue;
    }
    const std::size_t next =
        at + 1 < name.size() ? static_cast<unsigned char>(name[at + 1]) : std::size_t{0};
    if (name[at] == '\xC3' && next >= kFirstAccent && !kPlain.at(next - kFirstAccent).empty()) {
      key += kPlain.at(next - kFirstAccent);
      at += 2;
    } else {
      key += name[at++];
    }
  }
  return key;
}

// The first bytes of a key behind what all keys begin with, so that most comparisons need no more.
struct SortedName {
  std::uint64_t first;
  std::uint32_t group;
  std::uint32_t place;
};

std::uint64_t FirstBytes(std::string_view key, std::size_t from) {
  std::uint64_t first = 0;
  for (std::size_t at = from; at < from + sizeof first; ++at) {
    first = (first << 8) | (at < key.size() ? static_cast<unsigned char>(key[at]) : 0);
  }
  return first;
}

std::size_t CommonLength(const std::vector<std::string>& keys) {
  if (keys.empty()) return 0;
  std::size_t length = keys.front().size();
  for (const std::string& key : keys) {
    const auto [differs, end] = std::mismatch(
        keys.front().begin(), keys.front().begin() + static_cast<std::ptrdiff_t>(length),
        key.begin(), key.end());
    length = static_cast<std::size_t>(differs - keys.front().begin());
  }
  return length;
}

std::uint32_t GroupOf(tables::Instrument instrument) {
  return instrument == tables::Instrument::None ? UINT32_MAX
                                                : static_cast<std::uint32_t>(instrument);
}

}  // namespace

std::string NameKey(std::string_view name) {
  if (!platform::IsAscii(name)) return KeyOfLower(platform::LowerCase(name));
  std::string lower(name);
  std::ranges::transform(lower, lower.begin(), platform::LowerAscii);
  return KeyOfLower(lower);
}

std::vector<std::size_t> PlacesInOrder(EntryOrder order, const tables::TableListing& listing,
                                       const tables::KeepAlive& keepAlive) {
  const std::size_t count = listing.names.size();
  std::vector<std::size_t> places(count);
  std::iota(places.begin(), places.end(), std::size_t{0});
  if (order == EntryOrder::File) return places;
  std::size_t steps = 0;
  const auto step = [&] {
    if (keepAlive && ++steps % kAliveEvery == 0) keepAlive();
  };
  std::vector<std::string> keys;
  keys.reserve(count);
  for (const std::string& name : listing.names) {
    keys.push_back(NameKey(name));
    step();
  }
  const std::size_t common = CommonLength(keys);
  std::vector<SortedName> sorted;
  sorted.reserve(count);
  for (std::size_t place = 0; place < count; ++place) {
    const std::uint32_t group =
        order == EntryOrder::Instrument ? GroupOf(listing.instruments[place]) : 0;
    sorted.push_back({FirstBytes(keys[place], common), group, static_cast<std::uint32_t>(place)});
  }
  std::ranges::sort(sorted, [&](const SortedName& one, const SortedName& other) {
    step();
    if (one.group != other.group) return one.group < other.group;
    if (one.first != other.first) return one.first < other.first;
    const int compared = keys[one.place].compare(keys[other.place]);
    return compared != 0 ? compared < 0 : one.place < other.place;
  });
  std::ranges::transform(sorted, places.begin(), &SortedName::place);
  return places;
}

}  // namespace zentab::app

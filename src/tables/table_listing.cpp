#include "tables/table_listing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <unordered_map>

#include "platform/ascii.h"
#include "platform/character_case.h"
#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kKeepAliveEvery = 1u << 20;  // bytes

constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;  // odd: 2^64 by the golden ratio

std::uint64_t Mixed(std::uint64_t state, std::uint64_t word) {
  return (std::rotl(state, 29) ^ word) * kMultiplier;
}

std::uint64_t WordAt(const char* at, std::size_t size) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, size);
  return word;
}

std::string_view WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// The bytes of line `index` where the listing has it, if it still stands there.
std::error_code ReadLineAt(platform::FileLayer& files, const fs::path& file,
                           const TableListing& listing, std::size_t index, std::string& bytes,
                           bool& isSame) {
  isSame = false;
  std::optional<platform::FileStamp> stamp;
  if (const std::error_code error = files.StampOf(file, stamp)) return error;
  if (!stamp || stamp != listing.stamp) return {};
  platform::FileReader reader(files, file);
  // Someone may just have taken the file away.
  if (reader.Error() == std::errc::no_such_file_or_directory) return {};
  if (reader.Error()) return reader.Error();
  // What was put in its place since may be shorter.
  if (listing.EndOf(index) > reader.Size()) return {};
  const auto error = reader.Read(listing.lines[index].offset, listing.EndOf(index), bytes);
  if (error) return error;
  bytes.resize(WithoutLineEnd(bytes).size());
  isSame = HashOf(bytes) == listing.lines[index].hash;
  return {};
}

}  // namespace

// Four lanes at a time: each waits for its own multiplications only.
std::uint64_t HashOf(std::string_view line) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::array<std::uint64_t, 4> lanes = {1, 2, 3, 4};
  const char* at = line.data();
  std::size_t left = line.size();
  for (; left >= kWord * lanes.size(); left -= kWord * lanes.size()) {
    for (std::uint64_t& lane : lanes) {
      lane = Mixed(lane, WordAt(at, kWord));
      at += kWord;
    }
  }
  for (; left > 0; left -= std::min(left, kWord)) {
    const std::size_t size = std::min(left, kWord);
    lanes[0] = Mixed(lanes[0], WordAt(at, size));
    at += size;
  }
  std::uint64_t hash = line.size();
  for (const std::uint64_t lane : lanes) hash = Mixed(hash, lane ^ (lane >> 32));
  return hash ^ (hash >> 32);
}

std::uint64_t TableListing::EndOf(std::size_t index) const {
  return index + 1 < lines.size() ? lines[index + 1].offset : end;
}

bool TableListing::HasName(std::string_view name, const KeepAlive& keepAlive) const {
  constexpr std::size_t kAliveEvery = 10'000;  // names
  const std::string wanted = platform::LowerCase(name);
  std::size_t count = 0;
  return std::any_of(names.begin(), names.end(), [&](const std::string& other) {
    if (keepAlive && ++count % kAliveEvery == 0) keepAlive();
    if (!platform::IsAscii(other)) return platform::LowerCase(other) == wanted;
    // Most names are of this kind, and no copy is made of them.
    return std::equal(other.begin(), other.end(), wanted.begin(), wanted.end(),
                      [](char c, char lower) { return platform::LowerAscii(c) == lower; });
  });
}

std::optional<std::string> TableListing::FirstTaken(const std::vector<std::string>& wanted) const {
  constexpr std::size_t kFew = 20;  // are looked for one by one
  auto taken = wanted.end();
  if (wanted.size() <= kFew) {
    taken = std::ranges::find_if(wanted, [this](const auto& name) { return HasName(name); });
  } else {
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t at = 0; at < wanted.size(); ++at) {
      places.try_emplace(platform::LowerCase(wanted[at]), at);
    }
    std::size_t first = wanted.size();
    for (const std::string& name : names) {
      const auto found = places.find(platform::LowerCase(name));
      if (found != places.end()) first = std::min(first, found->second);
    }
    taken = wanted.begin() + static_cast<std::ptrdiff_t>(first);
  }
  return taken == wanted.end() ? std::nullopt : std::optional(*taken);
}

EntryMark TableListing::MarkOf(std::size_t index) const {
  return index < lines.size() ? EntryMark{index, lines[index].hash} : EntryMark{kNoLine, 0};
}

std::size_t TableListing::LineOf(std::size_t name) const {
  if (name >= names.size()) return kNoLine;
  std::size_t line = name;
  for (const std::size_t without : nameless) {
    if (without > line) break;
    ++line;
  }
  return line;
}

std::size_t TableListing::NameIn(std::size_t line) const {
  const auto without = std::lower_bound(nameless.begin(), nameless.end(), line);
  if (line >= lines.size() || (without != nameless.end() && *without == line)) return kNoLine;
  return line - static_cast<std::size_t>(without - nameless.begin());
}

std::size_t TableListing::PlaceOf(const EntryMark& mark) const {
  if (mark.index == kNoLine) return kNoLine;
  const std::size_t count = lines.size();
  for (std::size_t away = 0; away <= mark.index || mark.index + away < count; ++away) {
    for (const std::size_t place : {mark.index - away, mark.index + away}) {
      if (place < count && lines[place].hash == mark.hash) return place;
    }
  }
  return kNoLine;
}

std::error_code ListEntries(platform::FileLayer& files, const fs::path& file,
                            TableListing& listing) {
  TableListing fresh;
  fresh.readings = listing.readings + 1;
  std::unique_ptr<platform::InputFile> input;
  std::error_code error = files.Open(file, input);
  if (error == std::errc::no_such_file_or_directory) {
    listing = std::move(fresh);
    return {};
  }
  if (error) return error;
  // A file that changes after this has another stamp.
  if ((error = input->Stamp(fresh.stamp.emplace()))) return error;
  std::uint64_t alive = 0;
  error = platform::ReadLines(*input, [&](const platform::RawLine& line) {
    std::optional<std::string> name = ParseEntryName(line.text);
    if (name) {
      fresh.names.push_back(*std::move(name));
      fresh.instruments.push_back(InstrumentOf(line.text));
    } else {
      fresh.nameless.push_back(fresh.lines.size());
    }
    fresh.lines.push_back({line.offset, HashOf(line.text)});
    fresh.end = line.offset + line.text.size() + line.ending.size();
    if (fresh.end - alive > kKeepAliveEvery) {
      alive = fresh.end;
      files.KeepAlive();
    }
    return true;
  });
  if (!error) listing = std::move(fresh);
  return error;
}

std::error_code Refresh(platform::FileLayer& files, const fs::path& file, TableListing& listing) {
  std::optional<platform::FileStamp> stamp;
  if (const std::error_code error = files.StampOf(file, stamp)) return error;
  return stamp == listing.stamp ? std::error_code() : ListEntries(files, file, listing);
}

std::error_code ReadLine(platform::FileLayer& files, const fs::path& file, TableListing& listing,
                         EntryMark& mark, std::string& bytes) {
  constexpr int kTries = 3;  // of a file that goes on changing
  for (int left = kTries; left > 0; --left) {
    mark.index = listing.PlaceOf(mark);
    if (mark.index == kNoLine) break;
    bool isSame = false;
    if (const auto error = ReadLineAt(files, file, listing, mark.index, bytes, isSame)) {
      return error;
    }
    if (isSame) return {};
    if (const std::error_code error = ListEntries(files, file, listing)) return error;
  }
  return std::make_error_code(kEntryChanged);
}

std::error_code ReadEntryLine(platform::FileLayer& files, const fs::path& file,
                              TableListing& listing, EntryMark& mark, std::string& line) {
  std::string bytes;
  const std::error_code error = ReadLine(files, file, listing, mark, bytes);
  if (!error) line = texts::DecodeLine(bytes);
  return error;
}

}  // namespace zentab::tables

#include "tables/table_listing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

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

// Line `index` where the listing has it, if it still stands there.
std::optional<std::string> LineAt(const fs::path& file, const TableListing& listing,
                                  std::size_t index) {
  std::optional<std::string> bytes =
      platform::FileReader(file).Read(listing.lines[index].offset, listing.EndOf(index));
  if (!bytes) return std::nullopt;
  bytes->resize(WithoutLineEnd(*bytes).size());
  if (HashOf(*bytes) != listing.lines[index].hash) return std::nullopt;
  return bytes;
}

std::optional<std::size_t> FindSameLine(const TableListing& listing, const TableListing& former,
                                        std::size_t index) {
  if (index >= former.lines.size()) return std::nullopt;
  const std::uint64_t hash = former.lines[index].hash;
  const std::size_t count = listing.lines.size();
  for (std::size_t away = 0; away <= index || index + away < count; ++away) {
    for (const std::size_t place : {index - away, index + away}) {
      if (place < count && listing.lines[place].hash == hash) return place;
    }
  }
  return std::nullopt;
}

std::optional<std::size_t> FindSameName(const TableListing& listing, std::string_view name) {
  const auto found = std::find(listing.names.begin(), listing.names.end(), name);
  if (found == listing.names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - listing.names.begin());
}

// The place of the same line, else of the same name.
std::size_t PlaceOf(const TableListing& listing, const TableListing& former, std::size_t index) {
  if (const std::optional<std::size_t> line = FindSameLine(listing, former, index)) return *line;
  const std::optional<std::size_t> named =
      index < former.names.size() ? FindSameName(listing, former.names[index]) : std::nullopt;
  return named.value_or(kNoLine);
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

TableListing ListEntries(const fs::path& file, const KeepAlive& keepAlive) {
  TableListing listing;
  // A file that changes after this has another stamp.
  listing.stamp = platform::StampOf(file);
  listing.readings = 1;
  std::uint64_t alive = 0;
  platform::LineReader reader(file);
  platform::RawLine line;
  while (reader.Next(line)) {
    std::optional<std::string> name = ParseEntryName(line.text);
    if (name) {
      listing.names.push_back(*std::move(name));
    } else {
      listing.nameless.push_back(listing.lines.size());
    }
    listing.lines.push_back({listing.end, HashOf(line.text)});
    listing.end += line.text.size() + line.ending.size();
    if (keepAlive && listing.end - alive > kKeepAliveEvery) {
      alive = listing.end;
      keepAlive();
    }
  }
  // Whoever looks again tries again.
  if (reader.Failed()) listing.stamp.reset();
  return listing;
}

bool ListAgain(const fs::path& file, TableListing& listing, std::size_t& index,
               const KeepAlive& keepAlive) {
  TableListing fresh = ListEntries(file, keepAlive);
  if (!fresh.stamp && platform::StampOf(file)) return false;
  fresh.readings += listing.readings;
  index = PlaceOf(fresh, listing, index);
  listing = std::move(fresh);
  return true;
}

bool Refresh(const fs::path& file, TableListing& listing, std::size_t& index,
             const KeepAlive& keepAlive) {
  return listing.stamp != platform::StampOf(file) && ListAgain(file, listing, index, keepAlive);
}

std::error_code ReadLine(const fs::path& file, TableListing& listing, std::size_t& index,
                         std::string& bytes, const KeepAlive& keepAlive) {
  constexpr int kTries = 3;  // of a file that goes on changing
  if (index >= listing.lines.size()) return std::make_error_code(std::errc::result_out_of_range);
  const std::uint64_t hash = listing.lines[index].hash;
  for (int left = kTries; left > 0; --left) {
    if (listing.stamp == platform::StampOf(file)) {
      if (std::optional<std::string> line = LineAt(file, listing, index)) {
        bytes = *std::move(line);
        return {};
      }
    }
    if (!ListAgain(file, listing, index, keepAlive)) {
      return std::make_error_code(std::errc::io_error);
    }
    if (index >= listing.lines.size() || listing.lines[index].hash != hash) break;
  }
  return std::make_error_code(kEntryChanged);
}

std::error_code ReadEntryLine(const fs::path& file, TableListing& listing, std::size_t& index,
                              std::string& line, const KeepAlive& keepAlive) {
  std::string bytes;
  const std::error_code error = ReadLine(file, listing, index, bytes, keepAlive);
  if (!error) line = texts::DecodeLine(bytes);
  return error;
}

}  // namespace zentab::tables

#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "bench/in_turns.h"
#include "tables/entry_line.h"

// A library of 100,000 curves, and plain copies to time the work on it beside.
namespace zentab::bench {

namespace fs = std::filesystem;

inline constexpr std::size_t kEntries = 100'000;
inline constexpr std::size_t kBlock = 256u << 10;

inline tables::CurveTableEntry EntryNumber(std::size_t number) {
  tables::CurveTableEntry entry = {"IEC SI TMS 0.10 Feeder " + std::to_string(number),
                                   {},
                                   false,
                                   true,
                                   tables::Instrument::Current};
  for (int point = 1; point <= 26; ++point) {
    entry.points.push_back({std::to_string(point) + ".125", std::to_string(100 - point) + ".0625"});
  }
  return entry;
}

class Library {
 public:
  explicit Library(std::size_t entries = kEntries)
      : folder_(fs::temp_directory_path() / ("zentab-bench-" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
    std::ofstream file(Path(), std::ios::binary);
    for (std::size_t number = 0; number < entries; ++number) {
      file << tables::FormatEntryLine(EntryNumber(number)) << "\r\n";
    }
  }
  ~Library() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] fs::path Path() const { return folder_ / "relayTables.dat"; }
  [[nodiscard]] fs::path Folder() const { return folder_; }

 private:
  fs::path folder_;
};

inline const Library& SharedLibrary() {
  static const Library library;
  return library;
}

/// Reads one file in blocks and writes another.
inline void CopyBytes(const fs::path& from, const fs::path& to, bool flushed) {
  const int in = ::open(from.c_str(), O_RDONLY);
  const int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  Require(in >= 0 && out >= 0);
  const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
  while (const ssize_t count = ::read(in, block.get(), kBlock)) {
    Require(count > 0 && ::write(out, block.get(), static_cast<std::size_t>(count)) == count);
  }
  if (flushed) Require(::fsync(out) == 0);
  ::close(in);
  ::close(out);
}

inline void FlushFolder(const fs::path& file) {
  const int folder = ::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  Require(folder >= 0 && ::fsync(folder) == 0);
  ::close(folder);
}

}  // namespace zentab::bench

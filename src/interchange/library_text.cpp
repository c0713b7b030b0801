#include "interchange/library_text.h"

#include <algorithm>

#include "platform/character_case.h"
#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"

namespace zentab::interchange {
std::error_code LibraryText::Read(platform::FileLayer& files, const std::filesystem::path& file,
                                  LibraryText& result) {
  LibraryText text;
  platform::FileReader reader(files, file);
  if (reader.Error()) return reader.Error();
  const std::uint64_t mark =
      std::min<std::uint64_t>(reader.Size(), platform::kByteOrderMark.size());
  std::string begin;
  if (const std::error_code error = reader.Read(0, mark, begin)) return error;
  text.hasMark_ = begin == platform::kByteOrderMark;
  text.bytes_.reserve(static_cast<std::size_t>(reader.Size()));
  const auto take = [&text](const platform::RawLine& line) {
    text.lines_.push_back({text.bytes_.size(), line.text.size(), line.ending.size()});
    text.bytes_ += line.text;
    text.bytes_ += line.ending;
    return true;
  };
  if (const std::error_code error = platform::ReadLines(files, file, take)) return error;
  result = std::move(text);
  return {};
}

std::string_view LibraryText::Line(std::size_t line) const {
  return std::string_view(bytes_).substr(lines_[line].begin, lines_[line].length);
}

std::string_view LibraryText::Ending(std::size_t line) const {
  return std::string_view(bytes_).substr(lines_[line].begin + lines_[line].length,
                                         lines_[line].ending);
}

NameIndex::NameIndex(const LibraryText& library) {
  entries_.reserve(library.LineCount());
  for (std::size_t line = 0; line < library.LineCount(); ++line) {
    if (std::optional<std::string> name = tables::ParseEntryName(library.Line(line))) {
      std::string key = platform::LowerCase(*name);
      entries_.push_back({*std::move(name), std::move(key), line});
    }
  }
  places_.reserve(entries_.size());
  std::unordered_map<std::string, std::size_t> repeated;
  for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
    std::string& key = entries_[entry].key;
    if (places_.contains(key)) {
      const std::size_t occurrence = ++repeated[key];
      // No name has a quote in it.
      key += '"' + std::to_string(occurrence);
    }
    places_.emplace(key, entry);
  }
}

std::size_t NameIndex::LineOf(const NameIndex& other, std::size_t entry) const {
  const auto found = places_.find(other.entries_[entry].key);
  return found == places_.end() ? kNoLine : entries_[found->second].line;
}

}  // namespace zentab::interchange

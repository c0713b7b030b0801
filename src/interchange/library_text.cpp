#include "interchange/library_text.h"

#include <algorithm>

#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"

namespace zentab::interchange {
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

NamedLines LibraryText::Names() const {
  NamedLines entries;
  for (std::size_t line = 0; line < LineCount(); ++line) {
    if (std::optional<std::string> name = tables::ParseEntryName(Line(line))) {
      entries.names.push_back(*std::move(name));
      entries.lines.push_back(line);
    }
  }
  return entries;
}

}  // namespace zentab::interchange

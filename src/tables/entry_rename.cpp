#include "tables/entry_rename.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/file_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::tables {

std::optional<std::string> RenamedLine(std::string_view bytes, std::string_view name) {
  const std::optional<std::string> former = ParseEntryName(bytes);
  if (!former || name.empty()) return std::nullopt;
  const std::string line = texts::DecodeLine(bytes);
  const std::size_t begin = line.find(*former + '"', std::min<std::size_t>(2, line.size()));
  if (begin == std::string::npos) return std::nullopt;
  std::string renamed = line;
  renamed.replace(begin, former->size(), name);
  const bool wasUtf8 = line == bytes && !platform::IsAscii(bytes);
  std::string result = wasUtf8 ? renamed : texts::EncodeLine(renamed);
  const bool isSame = ParseEntryName(result) == name &&
                      name.find_first_of("\r\n") == std::string_view::npos &&
                      ParseEntryLine(renamed) == ParseEntryLine(line);
  return isSame ? std::optional(std::move(result)) : std::nullopt;
}

std::error_code RenameOf(platform::FileLayer& files, const std::filesystem::path& file,
                         TableListing& listing, EntryMark& mark, std::string_view name,
                         LineChange& change) {
  std::string line;
  if (const auto error = ReadLine(files, file, listing, mark, line)) return error;
  const std::optional<std::string> renamed = RenamedLine(line, name);
  if (!renamed) return std::make_error_code(std::errc::invalid_argument);
  platform::FileReader source(files, file);
  if (source.Error()) return source.Error();
  if (source.Stamp() != listing.stamp) return std::make_error_code(kEntryChanged);
  std::string ending;
  if (const auto error = source.Read(listing.lines[mark.index].offset + line.size(),
                                     listing.EndOf(mark.index), ending)) {
    return error;
  }
  change = ChangeOfLine(file, listing, mark.index);
  change.before = line + ending;
  change.after = *renamed + ending;
  change.needsFreeName = true;
  return PlaceFor(change, listing) ? std::error_code()
                                   : std::make_error_code(std::errc::file_exists);
}

}  // namespace zentab::tables

#include "tables/table_library.h"

#include <algorithm>

#include "platform/character_case.h"
#include "platform/line_reader.h"
#include "platform/safe_file_replacement.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;

std::string NewLine(const CurveTableEntry& entry) {
  return texts::EncodeLine(FormatEntryLine(entry)) + "\r\n";
}

std::error_code ChangeLine(platform::FileLayer& files, const fs::path& file, std::size_t index,
                           std::string_view replacement) {
  return platform::ReplaceFile(files, file, [&](platform::OutputFile& output) {
    return platform::CopyChangingLine(file, index, replacement, output);
  });
}

template <class Take>
void ForEachName(const fs::path& file, Take take) {
  platform::LineReader reader(file);
  platform::RawLine line;
  for (std::size_t number = 0; reader.Next(line); ++number) {
    if (std::optional<std::string> name = ParseEntryName(line.text)) {
      take(number, *std::move(name));
    }
  }
}

}  // namespace

std::vector<std::string> ListEntryNames(const fs::path& file) {
  std::vector<std::string> names;
  ForEachName(file, [&](std::size_t, std::string name) { names.push_back(std::move(name)); });
  return names;
}

std::vector<NamedLine> ListNamedLines(const fs::path& file) {
  std::vector<NamedLine> lines;
  ForEachName(file, [&](std::size_t number, std::string name) {
    lines.push_back({number, std::move(name)});
  });
  return lines;
}

std::optional<std::string> ReadEntryLine(const fs::path& file, std::size_t index) {
  platform::LineReader reader(file);
  platform::RawLine line;
  for (std::size_t number = 0; reader.Next(line); ++number) {
    if (number == index) return texts::DecodeLine(line.text);
  }
  return std::nullopt;
}

std::error_code RemoveEntry(platform::FileLayer& files, const fs::path& file, std::size_t index) {
  return ChangeLine(files, file, index, {});
}

std::error_code ReplaceEntry(platform::FileLayer& files, const fs::path& file, std::size_t index,
                             const CurveTableEntry& entry) {
  return ChangeLine(files, file, index, NewLine(entry));
}

std::error_code AppendEntry(platform::FileLayer& files, const fs::path& file,
                            const CurveTableEntry& entry) {
  const std::string line = (platform::EndsInsideLine(file) ? "\r\n" : "") + NewLine(entry);
  return platform::AppendToFile(files, file, line);
}

bool HasName(const std::vector<std::string>& names, std::string_view name) {
  const std::string wanted = platform::LowerCase(name);
  return std::any_of(names.begin(), names.end(), [&wanted](const std::string& other) {
    return platform::LowerCase(other) == wanted;
  });
}

}  // namespace zentab::tables

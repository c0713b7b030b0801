#include "timetest/result_reader.h"

#include "platform/paths.h"
#include "texts/number_text.h"
#include "texts/text_catalogue.h"
#include "timetest/section_lines.h"

namespace zentab::timetest {
namespace {

struct SourceRow {
  tables::Instrument instrument;
  std::string_view headingKey;
  std::string_view file;
};

constexpr SourceRow kSources[] = {
    {tables::Instrument::Current, "HEADING.CURRENT.TIMETEST.TXT", "data\\current\\result.txt"},
    {tables::Instrument::Voltage, "HEADING.VOLTAGE.TIMETEST.TXT", "data\\voltage\\result.txt"},
};

}  // namespace

std::error_code FindResultSource(platform::FileLayer& files,
                                 const std::filesystem::path& installFolder,
                                 tables::Instrument instrument, ResultSource& source) {
  source = {};
  for (const SourceRow& row : kSources) {
    if (row.instrument != instrument) continue;
    source.file = platform::FindFixedName(files, installFolder, row.file);
    const std::filesystem::path catalogue = platform::FindFixedName(files, installFolder, "fo.txt");
    const std::error_code error =
        texts::LookupText(files, row.headingKey, catalogue, source.heading);
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
  }
  return {};
}

SectionEntry ReadSectionEntry(platform::FileLayer& files, std::string_view firstKey,
                              std::string_view heading, std::string& secondKey,
                              const std::filesystem::path& file, std::string_view separator,
                              std::string_view endMarker) {
  if (secondKey.empty()) secondKey = firstKey;
  // Every line begins with an empty key, also the empty one that stands before the first.
  if (firstKey.empty()) return {};
  SectionEntry entry;
  entry.error = ReadSection(files, file, heading, [&](const SectionLine& line) {
    if (!line.inSection) return true;
    const std::string_view trimmed = texts::TrimBlanks(line.text);
    const bool isFirst = trimmed.starts_with(firstKey);
    if (isFirst) entry.value = ValueText(line.text, separator, endMarker);
    return !isFirst && !trimmed.starts_with(secondKey);
  });
  return entry;
}

bool HasEntries(platform::FileLayer& files, const ResultSource& source) {
  std::string secondKey;
  const SectionEntry entry =
      ReadSectionEntry(files, "1", source.heading, secondKey, source.file, kSeparator, kEndMarker);
  return !entry.error && !texts::TrimBlanks(entry.value).empty();
}

}  // namespace zentab::timetest

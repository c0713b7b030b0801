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

ResultSource FindResultSource(const std::filesystem::path& installFolder,
                              tables::Instrument instrument) {
  for (const SourceRow& row : kSources) {
    if (row.instrument != instrument) continue;
    return {platform::FindFixedName(installFolder, row.file),
            texts::LookupText(row.headingKey, platform::FindFixedName(installFolder, "fo.txt"))};
  }
  return {};
}

std::string ReadSectionEntry(std::string_view firstKey, std::string_view heading,
                             std::string& secondKey, const std::filesystem::path& file,
                             std::string_view separator, std::string_view endMarker) {
  SectionLines lines(file, heading);
  if (secondKey.empty()) secondKey = firstKey;
  // Every line begins with an empty key, also the empty one that stands before the first.
  if (firstKey.empty()) return {};
  for (std::string_view line; lines.Next(line);) {
    if (!lines.InSection()) continue;
    const std::string_view trimmed = texts::TrimBlanks(line);
    if (trimmed.starts_with(firstKey)) return ValueText(line, separator, endMarker);
    if (trimmed.starts_with(secondKey)) return {};
  }
  return {};
}

bool HasEntries(const ResultSource& source) {
  std::string secondKey;
  const std::string value =
      ReadSectionEntry("1", source.heading, secondKey, source.file, kSeparator, kEndMarker);
  return !texts::TrimBlanks(value).empty();
}

}  // namespace zentab::timetest

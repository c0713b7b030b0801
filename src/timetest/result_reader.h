#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"
#include "tables/curve_table_entry.h"

namespace zentab::timetest {

/// Where an instrument's last time test left its points.
struct ResultSource {
  std::filesystem::path file;  // empty: the instrument has no time test
  std::string heading;         // of the section, as the suite's own catalogue has it
};

/// The result file below the suite's installation folder, and the heading from its "fo.txt";
/// both stay empty for an instrument other than current and voltage. A heading that "fo.txt" does
/// not have is empty, too: the entries are then looked for from the first line on. Fails when
/// "fo.txt" is there but cannot be read.
[[nodiscard]] std::error_code FindResultSource(platform::FileLayer& files,
                                               const std::filesystem::path& installFolder,
                                               tables::Instrument instrument, ResultSource& source);

/// The value text of an entry; empty when there is none, or the file could not be read to it.
struct SectionEntry {
  std::string value;
  std::error_code error;
};

/// The value of the first line after a heading that begins with one of two keys. The heading is
/// the first line that begins with `heading`; blanks at the ends of lines do not count in either
/// search, case does. An empty second key becomes the first one. Only a line that begins with the
/// first key has a value: the text behind its first `separator`, up to `endMarker` or, where that
/// is missing, up to but without the last character. With the key "1" the line of an entry 12
/// counts when it comes first. Empty when there is no such line or the file cannot be read.
[[nodiscard]] SectionEntry ReadSectionEntry(platform::FileLayer& files, std::string_view firstKey,
                                            std::string_view heading, std::string& secondKey,
                                            const std::filesystem::path& file,
                                            std::string_view separator, std::string_view endMarker);

/// Whether the time test has points: its entry 1 is there and not blank.
[[nodiscard]] bool HasEntries(platform::FileLayer& files, const ResultSource& source);

}  // namespace zentab::timetest

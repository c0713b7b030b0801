#pragma once

#include <array>
#include <ctime>
#include <string>
#include <string_view>

namespace zentab::texts {

/// What the fields of a template stand for.
struct TemplateFields {
  std::tm now{};               // local time
  std::string tablePath;       // the active table file
  std::string exchangeFile;    // the file chosen last for copying entries
  std::string timeUnit;        // "S" or "mS"
  std::string loadLevels;      // the grid's load levels
  std::string instrumentName;  // of the instrument in use
  std::string instrumentUnit;
};

using TemplateArguments = std::array<std::string_view, 3>;

/// A template with its fields filled in: %1 %2 %3 arguments, %D date (yyyymmdd), %E time (hh:mm),
/// %S time (hh:mm:ss), %F table file, %G exchange file, %N line feed, %X time unit, %T load
/// levels, %U and %V name and unit of the instrument, %% one percent sign. %A %B %C %H %I %J %K
/// are reserved and vanish; any other pair stays. What is filled in is not expanded again.
[[nodiscard]] std::string ExpandTemplate(std::string_view text, const TemplateFields& fields,
                                         const TemplateArguments& arguments = {});

/// Of two texts that tell a count, in "%1", the one whose words fit it.
[[nodiscard]] inline const std::string& ForCount(std::size_t count, const std::string& one,
                                                 const std::string& more) {
  return count == 1 ? one : more;
}

/// A text that ExpandTemplate gives back as it is, whatever percent signs it holds.
[[nodiscard]] std::string AsTemplate(std::string_view text);

}  // namespace zentab::texts

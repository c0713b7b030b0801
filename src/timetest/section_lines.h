#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/line_reader.h"

namespace zentab::timetest {

/// A line of a result file.
struct SectionLine {
  std::string_view text;  // UTF-8, without its line end
  bool inSection;         // whether it lies behind the heading
  std::size_t bytes;      // that it takes in the file
};

/// Takes one line, valid until it returns; false: no more lines are wanted.
using SectionLineTaker = std::function<bool(const SectionLine&)>;

/// Hands over the lines of a result file. The heading is the first line that begins with its text,
/// blanks at the line's ends aside; an empty one comes before the first line. Fails as ReadLines.
[[nodiscard]] std::error_code ReadSection(platform::FileLayer& files,
                                          const std::filesystem::path& file,
                                          std::string_view heading, const SectionLineTaker& take);

/// The value text of an entry's line as the time test writes it: what follows the first tab, or
/// the whole line when it has none, in either case without the line's last character. It stands in
/// the line or in `buffer`.
[[nodiscard]] std::string_view EntryValue(std::string_view line, std::string& buffer);

/// The part of a line behind the first `separator` up to the first `endMarker` that follows it;
/// where there is no end marker up to the last character, which is left out. Both are looked for
/// without regard to case. A line without the separator is taken from its beginning.
[[nodiscard]] std::string ValueText(std::string_view line, std::string_view separator,
                                    std::string_view endMarker);

/// What the time test puts between values, and a text that ends none of its lines.
inline constexpr std::string_view kSeparator = "\t";
inline constexpr std::string_view kEndMarker = "Get the whole line";

}  // namespace zentab::timetest

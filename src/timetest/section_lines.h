#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/line_reader.h"

namespace zentab::timetest {

/// The lines of a result file, and which of them follow a heading. The heading is the first line
/// that begins with its text, blanks at the line's ends aside; an empty one comes before the first
/// line.
class SectionLines {
 public:
  /// `heading` is kept, not copied.
  SectionLines(const std::filesystem::path& file, std::string_view heading);

  /// The next line as UTF-8, without its line end, valid until the next call; false at the end of
  /// the file.
  [[nodiscard]] bool Next(std::string_view& line);

  /// Whether the last line lies behind the heading.
  [[nodiscard]] bool InSection() const { return inSection_; }
  /// Bytes of the last line in the file.
  [[nodiscard]] std::size_t LineBytes() const { return lineBytes_; }

 private:
  platform::LineReader reader_;
  std::string_view heading_;
  std::string decoded_;
  std::size_t lineBytes_ = 0;
  bool headingFound_;
  bool inSection_ = false;
};

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

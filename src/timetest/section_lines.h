#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/line_reader.h"

namespace zentab::timetest {

/// A line of a result file as UTF-8, without its line end.
struct SectionLine {
  std::string_view text;
  bool isAscii = true;
};

/// The lines of a result file that follow a heading. The heading is the first line that begins
/// with its text, blanks at the line's ends aside; an empty one comes before the first line.
class SectionLines {
 public:
  SectionLines(const std::filesystem::path& file, std::string_view heading);

  /// The next line, valid until the next call; false at the end of the file.
  [[nodiscard]] bool Next(SectionLine& line);

  /// Bytes of lines that were read so far, the heading's and those before it included.
  [[nodiscard]] std::uintmax_t BytesRead() const { return bytesRead_; }

 private:
  platform::LineReader reader_;
  std::string decoded_;
  std::uintmax_t bytesRead_ = 0;
};

/// The value text of an entry's line as the time test writes it: what follows the first tab, or
/// the whole line when it has none, in either case without the line's last character. It stands in
/// the line or in `buffer`.
[[nodiscard]] std::string_view EntryValue(const SectionLine& line, std::string& buffer);

/// The part of a line behind the first `separator` up to the first `endMarker` that follows it;
/// where there is no end marker up to the last character, which is left out. Both are looked for
/// without regard to case. A line without the separator is taken from its beginning.
[[nodiscard]] std::string ValueText(std::string_view line, std::string_view separator,
                                    std::string_view endMarker);

/// What the time test puts between values, and a text that ends none of its lines.
inline constexpr std::string_view kSeparator = "\t";
inline constexpr std::string_view kEndMarker = "Get the whole line";

}  // namespace zentab::timetest

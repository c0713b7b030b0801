#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// One line of a file: its text, and the line end that followed it: CR LF, LF, CR, or nothing
/// behind the last line of a file that ends without one.
struct RawLine {
  std::string_view text;
  std::string_view ending;
  std::uint64_t offset;  // of the text, in bytes from the file's start
};

/// Takes one line, valid until it returns; false: no more lines are wanted.
using LineTaker = std::function<bool(const RawLine&)>;

/// No line that means anything comes near; a longer one ends the reading.
#ifdef ZENTAB_LONGEST_LINE
inline constexpr std::size_t kLongestLine = ZENTAB_LONGEST_LINE;
#else
inline constexpr std::size_t kLongestLine = 64u << 20;
#endif

/// The mark that editors of other systems put in front of a text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// What ends a line that the program writes.
inline constexpr std::string_view kLineEnd = "\r\n";

/// Hands the lines of a file to `take`, one after the other, without a byte-order mark in front of
/// the first. The file is read in large blocks; memory grows with the longest line, not with the
/// file. Fails with what the system says when the file cannot be opened, is no regular file or
/// cannot be read to its end, and with FileError::LineTooLong; the lines before that were taken.
[[nodiscard]] std::error_code ReadLines(FileLayer& files, const std::filesystem::path& path,
                                        const LineTaker& take);

/// The same for a file that is open.
[[nodiscard]] std::error_code ReadLines(InputFile& file, const LineTaker& take);

}  // namespace zentab::platform

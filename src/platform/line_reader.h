#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"

namespace zentab::platform {

/// One line of a file: its text, and the line end that followed it: CR LF, LF, CR, or nothing
/// behind the last line of a file that ends without one.
struct RawLine {
  std::string_view text;
  std::string_view ending;
};

/// Reads a file line by line, in large blocks, each line valid until the next is read. Memory
/// grows with the longest line, not with the file. A file that cannot be opened, or is no regular
/// file, has no lines; a read that fails ends the file early. Failed() tells both.
class LineReader {
 public:
  /// Behind `most` bytes the file counts as ended, however much it has grown meanwhile.
  explicit LineReader(const std::filesystem::path& path,
                      std::uint64_t most = std::numeric_limits<std::uint64_t>::max());

  /// The next line; false at the end of the file.
  [[nodiscard]] bool Next(RawLine& line);

  /// Whether the file could not be opened, or not be read up to where Next has come.
  [[nodiscard]] bool Failed() const { return !file_.is_open() || file_.bad(); }

 private:
  [[nodiscard]] bool Refill();

  std::ifstream file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // the unread bytes are [begin_, end_) of the buffer
  std::size_t end_ = 0;
  std::uint64_t unread_ = 0;  // how many bytes may still be read from the file
  bool atEnd_ = false;
};

/// Whether the last line of a file has no line end. False for an empty or missing file.
[[nodiscard]] bool EndsInsideLine(const std::filesystem::path& path);

/// Copies a file with `replacement` (which brings its own line end; empty: nothing) in the place
/// of line number `index` (from 0); every other byte is copied as it is. Fails with
/// std::errc::result_out_of_range when the file has no such line, and with what the system says
/// when reading or writing fails.
[[nodiscard]] std::error_code CopyChangingLine(const std::filesystem::path& source,
                                               std::size_t index, std::string_view replacement,
                                               OutputFile& output);

}  // namespace zentab::platform

#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

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
  explicit LineReader(const std::filesystem::path& path);

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
  bool atEnd_ = false;
};

}  // namespace zentab::platform

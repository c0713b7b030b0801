#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::test {

/// A file as the lines it is made of.
struct LineFile {
  struct Line {
    std::string text;
    std::string ending;
  };
  std::string what;
  std::vector<Line> lines;

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  /// The file's bytes, with `replacement` in the place of one line.
  [[nodiscard]] std::string Bytes(std::size_t changed = kNone,
                                  std::string_view replacement = {}) const;
};

/// Files that a reader of lines may stumble over: every kind of line end, random bytes, lines and
/// line ends that straddle the blocks in which files are read, a line of 50 MB.
[[nodiscard]] std::vector<LineFile> HostileLineFiles();

}  // namespace zentab::test

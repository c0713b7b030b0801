#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::test {

/// A file as the lines it is made of.
struct LineFile {
  struct Line {
    std::string text, ending;
  };
  std::string what;
  std::vector<Line> lines;

  /// The file's bytes, with `replacement` in the place of line `changed`.
  [[nodiscard]] std::string Bytes(std::size_t changed = std::string::npos,
                                  std::string_view replacement = {}) const {
    std::string bytes;
    for (std::size_t index = 0; index < lines.size(); ++index) {
      if (index == changed) {
        bytes += replacement;
      } else {
        bytes.append(lines[index].text).append(lines[index].ending);
      }
    }
    return bytes;
  }
};

/// Files that a reader of lines may stumble over: every kind of line end, random bytes, lines and
/// line ends that straddle the blocks in which files are read, a line of many blocks.
[[nodiscard]] inline std::vector<LineFile> HostileLineFiles() {
  const std::string endings[] = {"\r\n", "\n", "\r"};
  LineFile noise{"random bytes", {}};
  std::mt19937 random(1);
  for (int line = 0; line < 600; ++line) {
    // Never empty: a line feed right behind a CR would belong to it.
    std::string text(1 + random() % 2000, '-');
    for (char& c : text) {
      const char byte = static_cast<char>(random() % 256);
      if (byte != '\r' && byte != '\n') c = byte;
    }
    noise.lines.push_back({std::move(text), endings[random() % 3]});
  }
  std::vector<LineFile> files = {{"empty", {}}, std::move(noise)};
  constexpr std::size_t kBlock = 256u << 10;
  for (const std::string& end : endings) {
    files.push_back({"short", {{"a", end}, {"", end}, {std::string("\0b", 2), end}}});
    files.push_back({"open end", {{"a", end}, {"", end}, {"b", ""}}});
    for (std::size_t length = kBlock - 3; length <= kBlock + 1; ++length) {
      const std::string text(length, 'x');
      const std::string what = "line end at " + std::to_string(length);
      files.push_back({what, {{text, end}, {"b", end}, {"c", ""}}});
      files.push_back({what + ", the last", {{text, end}}});
    }
  }
  files.push_back({"mark inside", {{"", "\n"}, {"\xEF\xBB\xBF" + std::string(kBlock, 'x'), "\n"}}});
  files.push_back({"5 MB", {{"a", "\r\n"}, {std::string(5'000'000, '('), "\r\n"}, {"b", ""}}});
  return files;
}

}  // namespace zentab::test

#include "support/table_lines.h"

#include <random>

namespace zentab::test {
namespace {

constexpr std::size_t kBlock = 256u << 10;

LineFile RandomBytes(unsigned seed) {
  std::mt19937 random(seed);
  const auto below = [&random](unsigned bound) { return random() % bound; };
  LineFile file{"random bytes " + std::to_string(seed), {}};
  for (int line = 0; line < 300; ++line) {
    std::string text(below(4) == 0 ? 0 : below(3000), '\0');
    for (char& c : text) {
      do {
        c = static_cast<char>(below(256));
      } while (c == '\r' || c == '\n');
    }
    // A line feed right behind a CR would belong to it.
    if (text.empty()) text = "-";
    const std::string endings[] = {"\r\n", "\n", "\r"};
    file.lines.push_back({std::move(text), endings[below(3)]});
  }
  return file;
}

}  // namespace

std::string LineFile::Bytes(std::size_t changed, std::string_view replacement) const {
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

std::vector<LineFile> HostileLineFiles() {
  std::vector<LineFile> files = {{"empty", {}}, RandomBytes(1), RandomBytes(2)};
  for (const std::string ending : {"\r\n", "\n", "\r"}) {
    const std::string name = ending == "\r\n" ? "CR LF" : ending == "\n" ? "LF" : "CR";
    files.push_back({name, {{"a", ending}, {"", ending}, {std::string("\0b", 2), ending}}});
    files.push_back({name + ", open end", {{"a", ending}, {"", ending}, {"b", ""}}});
    for (std::size_t length = kBlock - 3; length <= kBlock + 1; ++length) {
      files.push_back({name + " after " + std::to_string(length) + " bytes",
                       {{std::string(length, 'x'), ending}, {"b", ending}, {"c", ""}}});
      files.push_back({name + " at the end, after " + std::to_string(length) + " bytes",
                       {{std::string(length, 'x'), ending}}});
    }
  }
  files.push_back(
      {"50 MB line", {{"a", "\r\n"}, {std::string(50'000'000, '('), "\r\n"}, {"b", ""}}});
  return files;
}

}  // namespace zentab::test

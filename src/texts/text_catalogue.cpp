#include "texts/text_catalogue.h"

#include <algorithm>
#include <functional>

#include "platform/line_reader.h"
#include "texts/line_encoding.h"

namespace zentab::texts {
namespace {

// A damaged file in a catalogue's place is not worth the memory.
constexpr std::size_t kLargestCatalogue = 4u << 20;

char Folded(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string Folded(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return Folded(c); });
  return result;
}

std::string TextOfLine(std::string_view line) {
  const std::size_t open = line.find('{');
  const std::size_t close = line.find('}');
  if (close == std::string_view::npos) return {};
  const std::size_t begin = open == std::string_view::npos ? 0 : open + 1;
  if (close < begin) return {};
  return DecodePart(line, line.substr(begin, close - begin));
}

}  // namespace

std::string LookupText(std::string_view key, const std::filesystem::path& file) {
  const std::string wanted = Folded(key);
  platform::LineReader reader(file);
  platform::RawLine line;
  while (reader.Next(line)) {
    const auto found = std::search(line.text.begin(), line.text.end(), wanted.begin(), wanted.end(),
                                   [](char a, char b) { return Folded(a) == b; });
    if (found != line.text.end()) return TextOfLine(line.text);
  }
  return {};
}

TextCatalogue::TextCatalogue(const std::filesystem::path& file) {
  platform::LineReader reader(file);
  platform::RawLine line;
  while (reader.Next(line) && lines_.size() + line.text.size() < kLargestCatalogue) {
    lines_.append(line.text).push_back('\n');
  }
  folded_ = Folded(lines_);
}

std::string TextCatalogue::Find(std::string_view key) const {
  const std::string wanted = Folded(key);
  const auto found = std::search(folded_.begin(), folded_.end(),
                                 std::boyer_moore_horspool_searcher(wanted.begin(), wanted.end()));
  if (found == folded_.end()) return {};
  const auto at = static_cast<std::size_t>(found - folded_.begin());
  const std::size_t before = lines_.rfind('\n', at);
  const std::size_t begin = before == std::string::npos ? 0 : before + 1;
  return TextOfLine(std::string_view(lines_).substr(begin, lines_.find('\n', at) - begin));
}

std::string StripAmpersands(std::string_view text) {
  std::string_view result;
  std::string_view rest = text;
  for (std::size_t at = rest.find('&'); at != std::string_view::npos; at = rest.find('&')) {
    if (at > 0) result = rest.substr(0, at);
    rest.remove_prefix(at + 1);
  }
  return std::string(result).append(rest);
}

}  // namespace zentab::texts

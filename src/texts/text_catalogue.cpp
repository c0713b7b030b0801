#include "texts/text_catalogue.h"

#include <algorithm>
#include <cstdint>

#include "platform/line_reader.h"
#include "platform/paths.h"
#include "texts/line_encoding.h"

namespace zentab::texts {
namespace {

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

// Keys by their first two characters: a place in a line is compared with few of them, so that even
// a large file in a catalogue's place is passed in little time.
class KeyIndex {
 public:
  explicit KeyIndex(std::span<const std::string> keys) : groups_(1) {
    for (const std::string& key : keys) {
      const std::size_t number = keys_.size();
      keys_.push_back(Folded(key));
      std::uint16_t& group = groupOf_[Start(keys_.back(), 0)];
      if (group == 0) {
        group = static_cast<std::uint16_t>(groups_.size());
        groups_.emplace_back();
      }
      groups_[group].push_back(number);
    }
  }

  // Calls `found` with the number of every key that stands in a line of capitals.
  template <typename Found>
  void FindIn(std::string_view line, const Found& found) const {
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
      for (const std::size_t number : groups_[groupOf_[Start(line, at)]]) {
        if (line.substr(at).starts_with(keys_[number])) found(number);
      }
    }
  }

 private:
  static std::size_t Start(std::string_view text, std::size_t at) {
    return static_cast<std::size_t>(static_cast<unsigned char>(text[at])) << 8 |
           static_cast<unsigned char>(text[at + 1]);
  }

  std::vector<std::string> keys_;
  std::vector<std::vector<std::size_t>> groups_;  // the first one is empty
  std::vector<std::uint16_t> groupOf_ = std::vector<std::uint16_t>(1u << 16);
};

std::filesystem::path FileOrDefault(const std::filesystem::path& file) {
  return file.empty() ? DefaultCatalogue(platform::ExecutablePath()) : file;
}

}  // namespace

std::filesystem::path DefaultCatalogue(const std::filesystem::path& executable) {
  return platform::FindFixedName(executable.parent_path(), platform::BaseName(executable) + ".txt");
}

std::error_code LookupText(platform::FileLayer& files, std::string_view key,
                           const std::filesystem::path& file, std::string& text) {
  text.clear();
  const std::string wanted = Folded(key);
  std::string found;
  const std::error_code error =
      platform::ReadLines(files, FileOrDefault(file), [&](const platform::RawLine& line) {
        const auto place = std::search(line.text.begin(), line.text.end(), wanted.begin(),
                                       wanted.end(), [](char a, char b) { return Folded(a) == b; });
        if (place == line.text.end()) return true;
        found = TextOfLine(line.text);
        return false;
      });
  if (!error) text = std::move(found);
  return error;
}

std::error_code LookupTexts(platform::FileLayer& files, std::span<const std::string> keys,
                            const std::filesystem::path& file, std::vector<std::string>& texts) {
  texts.assign(keys.size(), {});
  const KeyIndex index(keys);
  std::vector<std::string> all(keys.size());
  std::vector<bool> known(keys.size());
  const std::error_code error =
      platform::ReadLines(files, FileOrDefault(file), [&](const platform::RawLine& line) {
        index.FindIn(Folded(line.text), [&](std::size_t number) {
          if (!known[number]) all[number] = TextOfLine(line.text);
          known[number] = true;
        });
        return true;
      });
  if (!error) texts = std::move(all);
  return error;
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

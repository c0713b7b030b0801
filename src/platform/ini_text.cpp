#include "platform/ini_text.h"

#include "platform/character_case.h"

namespace zentab::platform {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string NormalName(std::string_view name) { return LowerCase(Trimmed(name)); }

bool HasLineBreak(std::string_view text) {
  return text.find_first_of("\r\n") != std::string_view::npos;
}

}  // namespace

IniText::Place IniText::Locate(std::string_view section, std::string_view key) const {
  const std::string wantedSection = NormalName(section);
  const std::string wantedKey = NormalName(key);
  const std::string_view all = text_;
  Place place;
  bool inside = false;
  bool takesKeys = false;
  // Editors of other systems put a byte-order mark in front.
  for (std::size_t begin = all.starts_with("\xEF\xBB\xBF") ? 3 : 0; begin < all.size();) {
    const std::size_t lineFeed = all.find('\n', begin);
    const std::size_t next = lineFeed == std::string_view::npos ? all.size() : lineFeed + 1;
    std::size_t end = lineFeed == std::string_view::npos ? all.size() : lineFeed;
    if (end > begin && all[end - 1] == '\r') --end;
    const std::string_view line = all.substr(begin, end - begin);
    const std::string_view content = Trimmed(line);
    const std::size_t equals = line.find('=');
    if (content.starts_with('[') && content.ends_with(']')) {
      // A section that appears twice is one section; its first part takes new keys.
      inside = NormalName(content.substr(1, content.size() - 2)) == wantedSection;
      takesKeys = inside && place.lastKeyEnd == std::string::npos;
      if (takesKeys) place.lastKeyEnd = next;
    } else if (inside && equals != std::string_view::npos && !content.starts_with(';') &&
               !content.starts_with('#')) {
      if (NormalName(line.substr(0, equals)) == wantedKey) {
        place.valueBegin = begin + equals + 1;
        place.valueEnd = end;
        return place;
      }
      if (takesKeys) place.lastKeyEnd = next;
    }
    begin = next;
  }
  return place;
}

std::optional<std::string> IniText::Find(std::string_view section, std::string_view key) const {
  const Place place = Locate(section, key);
  if (place.valueBegin == std::string::npos) return std::nullopt;
  return text_.substr(place.valueBegin, place.valueEnd - place.valueBegin);
}

bool IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  if (HasLineBreak(section) || HasLineBreak(key) || HasLineBreak(value)) return false;
  const Place place = Locate(section, key);
  if (place.valueBegin != std::string::npos) {
    text_.replace(place.valueBegin, place.valueEnd - place.valueBegin, value);
    return true;
  }
  std::string line = std::string(key) + "=" + std::string(value) + "\n";
  std::size_t at = place.lastKeyEnd;
  if (at == std::string::npos) {
    at = text_.size();
    line.insert(0, "[" + std::string(section) + "]\n");
  }
  if (at > 0 && text_[at - 1] != '\n') line.insert(0, "\n");
  text_.insert(at, line);
  return true;
}

}  // namespace zentab::platform

#include "app/entry_filter.h"

#include <algorithm>
#include <functional>

#include "platform/character_case.h"

namespace zentab::app {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Looks for a text of ASCII without making lower-case copies: most libraries hold nothing else.
// Only the Kelvin sign and the dotted capital I have their lower-case letter within ASCII; they are
// not found as "k" and "i".
class AsciiNeedle {
 public:
  explicit AsciiNeedle(std::string_view lower) : lower_(lower) {}

  [[nodiscard]] bool IsIn(std::string_view name) const {
    const auto same = [](char in, char wanted) { return LowerAscii(in) == wanted; };
    return std::search(name.begin(), name.end(), lower_.begin(), lower_.end(), same) != name.end();
  }

 private:
  std::string_view lower_;
};

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::vector<std::size_t> EntriesNamedLike(const std::vector<std::string>& names,
                                          std::string_view text) {
  const std::string wanted = platform::LowerCase(text);
  const AsciiNeedle ascii(wanted);
  const bool isAscii = IsAscii(wanted);
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < names.size(); ++place) {
    const bool holds = isAscii
                           ? ascii.IsIn(names[place])
                           : platform::LowerCase(names[place]).find(wanted) != std::string::npos;
    if (holds) places.push_back(place);
  }
  return places;
}

}  // namespace zentab::app

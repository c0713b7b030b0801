#include "app/entry_filter.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/character_case.h"

namespace zentab::app {
namespace {

// Looks for a text of ASCII without making lower-case copies: most libraries hold nothing else.
// Only the Kelvin sign and the dotted capital I have their lower-case letter within ASCII; they are
// not found as "k" and "i".
class AsciiNeedle {
 public:
  explicit AsciiNeedle(std::string_view lower) : lower_(lower) {}

  [[nodiscard]] bool IsIn(std::string_view name) const {
    const auto same = [](char in, char wanted) { return platform::LowerAscii(in) == wanted; };
    return std::search(name.begin(), name.end(), lower_.begin(), lower_.end(), same) != name.end();
  }

 private:
  std::string_view lower_;
};

}  // namespace

std::vector<std::size_t> EntriesNamedLike(const std::vector<std::string>& names,
                                          std::string_view text) {
  const std::string wanted = platform::LowerCase(text);
  const AsciiNeedle ascii(wanted);
  const bool isAscii = platform::IsAscii(wanted);
  const auto holds = [&](const std::string& name) {
    if (isAscii) return ascii.IsIn(name);
    return !platform::IsAscii(name) && platform::LowerCase(name).find(wanted) != std::string::npos;
  };
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < names.size(); ++place) {
    if (holds(names[place])) places.push_back(place);
  }
  return places;
}

}  // namespace zentab::app

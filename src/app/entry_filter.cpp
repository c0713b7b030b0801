#include "app/entry_filter.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/character_case.h"

namespace zentab::app {
namespace {

// Makes no lower-case copies: most libraries hold nothing but ASCII. Only the Kelvin sign and the
// dotted capital I have their lower-case letter there; they are not found as "k" and "i".
bool HoldsAscii(std::string_view name, std::string_view lower) {
  return std::search(name.begin(), name.end(), lower.begin(), lower.end(),
                     [](char in, char wanted) { return platform::LowerAscii(in) == wanted; }) !=
         name.end();
}

}  // namespace

std::vector<std::size_t> EntriesNamedLike(const std::vector<std::string>& names,
                                          std::string_view text,
                                          const tables::KeepAlive& keepAlive) {
  constexpr std::size_t kAliveEvery = 10'000;  // names
  const std::string wanted = platform::LowerCase(text);
  const bool isAscii = platform::IsAscii(wanted);
  const auto holds = [&](const std::string& name) {
    if (isAscii) return HoldsAscii(name, wanted);
    return !platform::IsAscii(name) && platform::LowerCase(name).find(wanted) != std::string::npos;
  };
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < names.size(); ++place) {
    if (holds(names[place])) places.push_back(place);
    if (keepAlive && place % kAliveEvery == 0) keepAlive();
  }
  return places;
}

}  // namespace zentab::app

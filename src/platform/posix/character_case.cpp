#include "platform/character_case.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <iterator>

#include <utf8.h>

#include "platform/ascii.h"

namespace zentab::platform {
namespace {

// The user's locale may be "C", which knows no letters beyond ASCII.
locale_t UnicodeLocale() {
  static const locale_t locale = [] {
    for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8"}) {
      if (const locale_t found = newlocale(LC_CTYPE_MASK, name, nullptr)) return found;
    }
    return newlocale(LC_CTYPE_MASK, "C", nullptr);
  }();
  return locale;
}

}  // namespace

std::string LowerCase(std::string_view utf8) {
  std::string result;
  if (IsAscii(utf8)) {
    result = utf8;
    std::transform(result.begin(), result.end(), result.begin(), LowerAscii);
    return result;
  }
  if (!utf8::is_valid(utf8.begin(), utf8.end())) return std::string(utf8);
  const locale_t locale = UnicodeLocale();
  for (auto at = utf8.begin(); at != utf8.end();) {
    const auto letter = static_cast<wint_t>(utf8::unchecked::next(at));
    utf8::unchecked::append(static_cast<utf8::uint32_t>(towlower_l(letter, locale)),
                            std::back_inserter(result));
  }
  return result;
}

}  // namespace zentab::platform

#include "platform/locale_queries.h"

#include <langinfo.h>
#include <locale.h>

namespace zentab::platform {

// Read from a locale object: the process keeps its "C" locale, so that no library call starts to
// read and write numbers differently.
std::optional<std::string> UserDecimalSeparator() {
  const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (locale == nullptr) return std::nullopt;
  std::string separator = nl_langinfo_l(RADIXCHAR, locale);
  freelocale(locale);
  return separator;
}

}  // namespace zentab::platform

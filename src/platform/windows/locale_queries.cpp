#include "platform/locale_queries.h"

#include <windows.h>

#include "platform/ansi_code_page.h"

namespace zentab::platform {

std::optional<std::string> UserDecimalSeparator() {
  std::string buffer(20, ' ');
  const int length = GetLocaleInfoA(GetUserDefaultLCID(), LOCALE_SDECIMAL, buffer.data(),
                                    static_cast<int>(buffer.size()));
  if (length <= 1) return std::nullopt;
  return FromAnsi(std::string_view(buffer).substr(0, static_cast<std::size_t>(length) - 1));
}

}  // namespace zentab::platform

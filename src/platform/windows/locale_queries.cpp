#include "platform/locale_queries.h"

#include <array>
#include <cstring>

#include "platform/ansi_code_page.h"
#include "platform/windows/wide_text.h"

namespace zentab::platform {

std::optional<std::string> UserDecimalSeparator() {
  std::string buffer(20, ' ');
  const int length = GetLocaleInfoA(GetUserDefaultLCID(), LOCALE_SDECIMAL, buffer.data(),
                                    static_cast<int>(buffer.size()));
  if (length <= 1) return std::nullopt;
  return FromAnsi(std::string_view(buffer).substr(0, static_cast<std::size_t>(length) - 1));
}

std::string MonthAbbreviation(int month) {
  // The longest name the system gives has 80 characters.
  std::array<wchar_t, 80> buffer{};
  const auto item = LOCALE_SABBREVMONTHNAME1 + static_cast<LCTYPE>(month - 1);
  const int length =
      GetLocaleInfoW(GetUserDefaultLCID(), item, buffer.data(), static_cast<int>(buffer.size()));
  if (length <= 1) return std::to_string(month);
  return ToUtf8(std::wstring_view(buffer.data(), static_cast<std::size_t>(length) - 1));
}

std::uint32_t SystemLocaleIdentifier() { return GetSystemDefaultLCID(); }

std::optional<int> UserCharacterSet() {
  LOCALESIGNATURE signature{};
  // The wide call gives the signature itself; the narrow one would convert its bits as letters.
  std::array<wchar_t, 32> buffer{};
  if (GetLocaleInfoW(GetUserDefaultLCID(), LOCALE_FONTSIGNATURE, buffer.data(),
                     static_cast<int>(buffer.size())) == 0) {
    return std::nullopt;
  }
  std::memcpy(&signature, buffer.data(), sizeof signature);
  CHARSETINFO information{};
  if (TranslateCharsetInfo(signature.lsCsbDefault, &information, TCI_SRCFONTSIG) == 0) {
    return std::nullopt;
  }
  return static_cast<int>(information.ciCharset);
}

}  // namespace zentab::platform

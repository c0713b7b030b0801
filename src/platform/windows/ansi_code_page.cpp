#include "platform/ansi_code_page.h"

#include "platform/windows/wide_text.h"

namespace zentab::platform {

std::string FromAnsi(std::string_view bytes) { return ToUtf8(ToWide(bytes, CP_ACP)); }

std::optional<std::string> ToAnsi(std::string_view utf8) {
  if (utf8.empty()) return std::string();
  const int length = static_cast<int>(utf8.size());
  if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, nullptr, 0) == 0) {
    return std::nullopt;
  }
  const std::wstring wide = ToWide(utf8, CP_UTF8);
  const int wideLength = static_cast<int>(wide.size());
  // The code page may itself be UTF-8, which allows neither best-fit flags nor a default.
  const bool isUtf8 = GetACP() == CP_UTF8;
  BOOL replaced = FALSE;
  const DWORD flags = isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL* const report = isUtf8 ? nullptr : &replaced;
  const int needed =
      WideCharToMultiByte(CP_ACP, flags, wide.data(), wideLength, nullptr, 0, nullptr, report);
  if (needed == 0 || replaced != FALSE) return std::nullopt;
  std::string result(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, flags, wide.data(), wideLength, result.data(), needed, nullptr,
                      report);
  return result;
}

}  // namespace zentab::platform

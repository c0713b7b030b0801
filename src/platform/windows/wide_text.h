#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace zentab::platform {

/// UTF-16 of a text in `codePage` (CP_UTF8, CP_ACP); invalid bytes become U+FFFD.
inline std::wstring ToWide(std::string_view text, UINT codePage) {
  const int length = static_cast<int>(text.size());
  if (length == 0) return {};
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

/// UTF-8 of a UTF-16 text.
inline std::string ToUtf8(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  if (length == 0) return {};
  std::string text(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length,
                                                                nullptr, 0, nullptr, nullptr)),
                   '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), static_cast<int>(text.size()),
                      nullptr, nullptr);
  return text;
}

}  // namespace zentab::platform

#include "platform/character_case.h"

#include "platform/windows/wide_text.h"

namespace zentab::platform {

std::string LowerCase(std::string_view utf8) {
  std::wstring wide = ToWide(utf8, CP_UTF8);
  CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return ToUtf8(wide);
}

}  // namespace zentab::platform

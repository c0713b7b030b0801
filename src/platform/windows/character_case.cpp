#include "platform/character_case.h"

#include <algorithm>

#include <utf8.h>

#include "platform/windows/wide_text.h"

namespace zentab::platform {
namespace {

std::string LowerCaseOfValid(std::string_view utf8) {
  std::wstring wide = ToWide(utf8, CP_UTF8);
  CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return ToUtf8(wide);
}

}  // namespace

std::string LowerCase(std::string_view utf8) {
  std::string result;
  while (!utf8.empty()) {
    const auto valid =
        static_cast<std::size_t>(utf8::find_invalid(utf8.begin(), utf8.end()) - utf8.begin());
    result += LowerCaseOfValid(utf8.substr(0, valid));
    // The system would put replacement characters in the place of what is no UTF-8.
    result += utf8.substr(valid, 1);
    utf8.remove_prefix(std::min(valid + 1, utf8.size()));
  }
  return result;
}

}  // namespace zentab::platform

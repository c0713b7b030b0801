#include "platform/ansi_code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include <utf8.h>

namespace zentab::platform {
namespace {

// Windows-1252, bytes 80 to 9F; all other bytes equal their character's number.
constexpr std::array<std::uint16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> AnsiByte(utf8::uint32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

}  // namespace

std::string FromAnsi(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool mapped = byte >= 0x80 && byte <= 0x9F;
    utf8::unchecked::append(mapped ? kUpperControls[byte - 0x80u] : utf8::uint32_t{byte},
                            std::back_inserter(result));
  }
  return result;
}

std::optional<std::string> ToAnsi(std::string_view utf8) {
  if (!utf8::is_valid(utf8.begin(), utf8.end())) return std::nullopt;
  std::string result;
  result.reserve(utf8.size());
  for (auto at = utf8.begin(); at != utf8.end();) {
    const std::optional<char> byte = AnsiByte(utf8::unchecked::next(at));
    if (!byte) return std::nullopt;
    result.push_back(*byte);
  }
  return result;
}

}  // namespace zentab::platform

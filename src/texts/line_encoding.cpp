#include "texts/line_encoding.h"

#include <utf8.h>

#include "platform/ansi_code_page.h"
#include "platform/ascii.h"

namespace zentab::texts {
namespace {

bool IsUtf8(std::string_view bytes) { return utf8::is_valid(bytes.begin(), bytes.end()); }

}  // namespace

std::string DecodeLine(std::string_view bytes) { return DecodePart(bytes, bytes); }

std::string DecodePart(std::string_view line, std::string_view part) {
  if (platform::IsAscii(part) || IsUtf8(line)) return std::string(part);
  return platform::FromAnsi(part);
}

std::string EncodeLine(std::string_view utf8) {
  std::optional<std::string> ansi = platform::ToAnsi(utf8);
  if (!ansi || (IsUtf8(*ansi) && *ansi != utf8)) return std::string(utf8);
  return *std::move(ansi);
}

}  // namespace zentab::texts

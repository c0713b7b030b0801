#include "texts/line_encoding.h"

#include <utf8.h>

#include <cstdint>
#include <cstring>

#include "platform/ansi_code_page.h"

namespace zentab::texts {
namespace {

bool IsUtf8(std::string_view bytes) { return utf8::is_valid(bytes.begin(), bytes.end()); }

}  // namespace

bool IsAscii(std::string_view bytes) {
  std::uint64_t bits = 0;
  std::size_t at = 0;
  for (; at + sizeof bits <= bytes.size(); at += sizeof bits) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    bits |= word;
  }
  for (; at < bytes.size(); ++at) bits |= static_cast<unsigned char>(bytes[at]);
  return (bits & 0x8080808080808080u) == 0;
}

std::string DecodeLine(std::string_view bytes) { return DecodePart(bytes, bytes); }

std::string DecodePart(std::string_view line, std::string_view part) {
  if (IsAscii(part) || IsUtf8(line)) return std::string(part);
  return platform::FromAnsi(part);
}

std::string EncodeLine(std::string_view utf8) {
  std::optional<std::string> ansi = platform::ToAnsi(utf8);
  if (!ansi || (IsUtf8(*ansi) && *ansi != utf8)) return std::string(utf8);
  return *std::move(ansi);
}

}  // namespace zentab::texts

#include "interchange/text_encoding.h"

#include <utf8.h>

#include <algorithm>

#include "platform/ansi_code_page.h"
#include "platform/line_reader.h"
#include "texts/characters.h"

namespace zentab::interchange {
namespace {

constexpr std::string_view kLittleEndian = "\xFF\xFE";
constexpr std::string_view kBigEndian = "\xFE\xFF";

std::u32string FromUtf16(std::string_view bytes) {
  const bool isBig = bytes.starts_with(kBigEndian);
  if (isBig || bytes.starts_with(kLittleEndian)) bytes.remove_prefix(kLittleEndian.size());
  const auto unitAt = [&](std::size_t at) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return isBig ? first * 256u + second : second * 256u + first;
  };
  std::u32string characters;
  characters.reserve(bytes.size() / 2);
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const char32_t unit = unitAt(at);
    const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
    const char32_t next = isHigh && at + 3 < bytes.size() ? unitAt(at + 2) : 0;
    if (next >= 0xDC00 && next < 0xE000) {
      characters += static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
      at += 2;
    } else {
      characters += unit;
    }
  }
  if (bytes.size() % 2 != 0) characters += U'\uFFFD';
  return characters;
}

}  // namespace

Encoding GuessEncoding(const std::string& bytes) {
  if (bytes.starts_with(kLittleEndian) || bytes.starts_with(kBigEndian)) return Encoding::Utf16;
  return utf8::is_valid(bytes.begin(), bytes.end()) ? Encoding::Utf8 : Encoding::SingleByte;
}

std::string Decoded(std::string bytes, Encoding encoding) {
  if (encoding == Encoding::Utf16) return texts::FromCharacters(FromUtf16(bytes));
  if (encoding == Encoding::SingleByte) return platform::FromAnsi(bytes);
  if (bytes.starts_with(platform::kByteOrderMark)) bytes.erase(0, platform::kByteOrderMark.size());
  if (utf8::is_valid(bytes.begin(), bytes.end())) return bytes;
  return texts::FromCharacters(texts::ToCharacters(bytes));
}

std::optional<std::size_t> LineOfNoText(const std::string& text) {
  const auto found = std::ranges::find_if(text, [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f';
  });
  if (found == text.end()) return std::nullopt;
  return static_cast<std::size_t>(std::count(text.begin(), found, '\n')) + 1;
}

}  // namespace zentab::interchange

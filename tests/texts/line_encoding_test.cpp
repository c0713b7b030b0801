#include "texts/line_encoding.h"

#include <gtest/gtest.h>

#include "platform/ansi_code_page.h"
#include "platform/character_case.h"
#include "texts/characters.h"

namespace zentab::texts {
namespace {

#ifndef _WIN32  // where the single-byte code page is Windows-1252
TEST(LineEncoding, ANewLineIsWindows1252WhereItReadsBackAsSuch) {
  const struct {
    std::string_view text;
    std::string_view bytes;
  } cases[] = {
      {"", ""},
      {"Curve A", "Curve A"},
      {"Überstrom",
       "\xDC"
       "berstrom"},
      {"5 € – „x“", "5 \x80 \x96 \x84x\x93"},
      {"Łódź", "Łódź"},
      {"变电站", "变电站"},
      {"mixed Ü Ł", "mixed Ü Ł"},
      {"Ã¼", "Ã¼"},                       // as Windows-1252 these bytes would read back as ü
      {"Ã¼ and Ü", "\xC3\xBC and \xDC"},  // but not beside a byte that is no UTF-8
      {"\xC2\x81", "\x81"},               // a place that Windows-1252 leaves open
  };
  for (const auto& [text, bytes] : cases) {
    EXPECT_EQ(EncodeLine(text), bytes) << text;
    EXPECT_EQ(DecodeLine(bytes), text);
  }
}

TEST(LineEncoding, EveryByteHasACharacterAndComesBack) {
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const std::string line(1, static_cast<char>(byte));
    const std::string text = DecodeLine(line);
    EXPECT_NE(text, line);
    EXPECT_EQ(EncodeLine(text), line) << byte;
  }
}

TEST(LineEncoding, TheWholeLineDecidesHowAPartIsRead) {
  const std::string_view mixed = "\xC3\xBC \xDC";
  EXPECT_EQ(DecodePart(mixed, mixed.substr(0, 2)), "Ã¼");
  const std::string_view valid = "\xC3\xBC Ł";
  EXPECT_EQ(DecodePart(valid, valid.substr(0, 2)), "ü");
}
#endif

TEST(LineEncoding, BrokenUtf8IsKeptAsItIs) {
  for (const std::string_view bytes : {"\xC3", "a\xED\xA0\x80", "\xFF\xFE"}) {
    EXPECT_FALSE(platform::ToAnsi(bytes));
    EXPECT_EQ(EncodeLine(bytes), bytes);
    EXPECT_EQ(platform::LowerCase(bytes), bytes);
  }
}

TEST(Characters, AreShownAsNumbersWhereTheySteerOrAreNone) {
  EXPECT_EQ(Visible("a\tb\n \x1F\x7F~\x1B[0m"), "a\tb\n \\x1F\\x7F~\\x1B[0m");
  EXPECT_EQ(Visible("\u0080\u009F\u00A0\u2027\u2028\u202E\u202C\u202F\u2065\u2066\u2069\u206A"),
            "\\x80\\x9F\u00A0\u2027\\u2028\\u202E\\u202C\u202F\u2065\\u2066\\u2069\u206A");
  EXPECT_EQ(Visible("\xFFü\xC3"), "\\xFFü\\xC3");
  EXPECT_EQ(FromCharacters(std::u32string{0xD7FF, 0xD800, 0xDFFF, 0xE000, 0x10FFFF, 0x110000}),
            "\uD7FF\uFFFD\uFFFD\uE000\U0010FFFF\uFFFD");
}

TEST(LineEncoding, EveryAlphabetHasLowerCase) {
  EXPECT_EQ(platform::LowerCase("Curve ÜŁÓ ΩЖ 变 ß"), "curve üłó ωж 变 ß");
}

}  // namespace
}  // namespace zentab::texts

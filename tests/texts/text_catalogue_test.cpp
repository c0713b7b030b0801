#include "texts/text_catalogue.h"

#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"

namespace zentab::texts {
namespace {

class CatalogueFile : public test::TemporaryFolder {};

struct LookupCase {
  std::string_view bytes;
  std::string_view key;
  std::string_view text;
};

TEST_F(CatalogueFile, TheFirstLineWithTheKeyGivesTheText) {
  const std::string behindLargePart = std::string(5u << 20, 'x') + "\nK.A {far}\n";
  const LookupCase cases[] = {
      {behindLargePart, "K.A", "far"},
      {"K.A {one} rest\r\nK.A {two}\r\n", "K.A", "one"},
      {"x k.a y {small letters}\n", "K.A", "small letters"},
      {"K.A {one}\n", "k.a", "one"},
      {"LAST.X2 {long}\nLAST.X {short}\n", "LAST.X", "long"},
      {"LAST.X {short}\nLAST.X2 {long}\n", "LAST.X2", "long"},
      {"K.A {a}b} c\n", "K.A", "a"},
      {"K.A {}\nK.A {later}\n", "K.A", ""},
      {"K.A no braces\nK.A {later}\n", "K.A", ""},
      {"K.A {open\n", "K.A", ""},
      {"K.A only} closed\n", "K.A", "K.A only"},
      {"K.A } before { open\n", "K.A", ""},
      {"\xEF\xBB\xBFK.A {after a mark}", "K.A", "after a mark"},
      {"K.A {\xDC"
       "ber}\nK.B {\xC3\x9C"
       "ber}\n",
       "K.A", "Über"},
      {"K.A {\xDC"
       "ber}\nK.B {\xC3\x9C"
       "ber}\n",
       "K.B", "Über"},
      {"other\rK.A {behind CR}\r", "K.A", "behind CR"},
      {"", "K.A", ""},
      {std::string_view("\0\xFF{}}K.A\0\nK.A {x}", 16), "K.A", ""},
  };
  std::string text;
  std::vector<std::string> texts;
  for (const LookupCase& c : cases) {
    const auto file = Write("catalogue.txt", c.bytes);
    EXPECT_FALSE(LookupText(platform::SystemFiles(), c.key, file, text));
    EXPECT_EQ(text, c.text) << c.bytes.substr(0, 80);
    const std::vector keys = {std::string(c.key)};
    EXPECT_FALSE(LookupTexts(platform::SystemFiles(), keys, file, texts));
    EXPECT_EQ(texts.front(), c.text) << c.bytes.substr(0, 80);
  }
}

TEST_F(CatalogueFile, AMissingFileOrAFolderHasNoTexts) {
  for (const auto& file : {Folder() / "missing.txt", Folder(), std::filesystem::path()}) {
    std::string text = "former";
    EXPECT_TRUE(LookupText(platform::SystemFiles(), "K.", file, text));
    EXPECT_EQ(text, "");
    std::vector<std::string> texts;
    const std::vector<std::string> keys = {"K."};
    EXPECT_TRUE(LookupTexts(platform::SystemFiles(), keys, file, texts));
    EXPECT_EQ(texts.front(), "");
  }
  test::FailingFileLayer failing;
  failing.failingRead = 2;
  const auto file = Write("catalogue.txt", "K.A {text}\n" + std::string(1u << 20, '\n'));
  std::vector<std::string> texts;
  EXPECT_TRUE(LookupTexts(failing, std::vector<std::string>{"K.A"}, file, texts));
  EXPECT_EQ(texts.front(), "") << "as good as none";
}

TEST(StripAmpersands, KeepsTheKnownLossBehindTheFirstCharacter) {
  for (const auto& row : test::Cases("texts.txt", "ampersands")) {
    EXPECT_EQ(StripAmpersands(row[0]), row[1]) << row[0];
  }
}

}  // namespace
}  // namespace zentab::texts

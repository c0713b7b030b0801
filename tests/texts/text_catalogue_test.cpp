#include "texts/text_catalogue.h"

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
  for (const LookupCase& c : cases) {
    const auto file = Write("catalogue.txt", c.bytes);
    EXPECT_EQ(LookupText(c.key, file), c.text) << c.bytes.substr(0, 80);
    EXPECT_EQ(LookupTexts(std::vector{std::string(c.key)}, file).front(), c.text)
        << c.bytes.substr(0, 80);
  }
}

TEST_F(CatalogueFile, AMissingFileOrAFolderHasNoTexts) {
  for (const auto& file : {Folder() / "missing.txt", Folder(), std::filesystem::path()}) {
    EXPECT_EQ(LookupText("K.", file), "");
    EXPECT_EQ(LookupTexts(std::vector<std::string>{"K."}, file).front(), "");
  }
}

TEST(StripAmpersands, KeepsTheKnownLossBehindTheFirstCharacter) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"&Current", "Current"},
      {"Cu&rrent", "Current"},
      {"A&B&C", "BC"},
      {"&A&B", "AB"},
      {"&&A", "A"},
      {"A&", "A"},
      {"", ""},
      {"none", "none"},
  };
  for (const auto& [text, stripped] : cases) EXPECT_EQ(StripAmpersands(text), stripped) << text;
}

}  // namespace
}  // namespace zentab::texts

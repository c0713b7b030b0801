#include "texts/text_catalogue.h"

#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"

namespace zentab::texts {
namespace {

class CatalogueFile : public test::TemporaryFolder {};

TEST_F(CatalogueFile, TheFirstLineWithTheKeyGivesTheText) {
  auto cases = test::Cases("texts.txt", "lookup");
  cases.push_back({std::string(5u << 20, 'x') + "\nK.A {far}\n", "K.A", "far"});
  cases.push_back({"K.A {\xDC}\nK.B {\xC3\x9C}\n", "K.A", "Ü"});
  cases.push_back({"K.A {\xDC}\nK.B {\xC3\x9C}\n", "K.B", "Ü"});
  cases.push_back({std::string("\0\xFF{}}K.A\0\nK.A {x}", 16), "K.A", ""});
  std::string text;
  std::vector<std::string> texts;
  for (const auto& row : cases) {
    SCOPED_TRACE(row[0].substr(0, 80));
    const auto file = Write("catalogue.txt", row[0]);
    EXPECT_FALSE(LookupText(platform::SystemFiles(), row[1], file, text));
    EXPECT_EQ(text, row[2]);
    const std::vector keys = {row[1]};
    EXPECT_FALSE(LookupTexts(platform::SystemFiles(), keys, file, texts));
    EXPECT_EQ(texts.front(), row[2]);
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

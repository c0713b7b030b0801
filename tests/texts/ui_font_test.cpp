#include "texts/ui_font.h"

#include <gtest/gtest.h>

#include <set>

namespace zentab::texts {
namespace {

class FakeSystem final : public FontSystem {
 public:
  std::uint32_t locale = 0x0409;
  std::optional<int> characterSet = 204;
  std::set<std::string> installed;
  mutable int queries = 0;

  std::uint32_t SystemLocale() const override { return ++queries, locale; }
  std::optional<int> UserCharacterSet() const override { return characterSet; }
  std::string ResolvedFace(const std::string& face) const override {
    return installed.contains(face) ? face : face == "Arial" ? "ARIAL" : "Fallback";
  }
};

TEST(UiFont, FollowsTheSystemLocale) {
  struct Case {
    std::uint32_t locale;
    std::string_view face;
    int size;
    int characterSet;
  };
  const Case cases[] = {
      {0x0404, "新細明體", 9, 136}, {0x0804, "宋体", 9, 134},
      {0x0C04, "", 0, 0},           {0x0411, "ＭＳ Ｐゴシック", 9, 128},
      {0x0412, "굴림", 9, 129},     {0x0812, "굴림", 9, 129},
      {0x0C12, "", 9, 129},         {0x0409, "ARIAL", 8, 204},
      {0x0407, "ARIAL", 8, 204},    {0, "ARIAL", 8, 204},
  };
  for (const Case& c : cases) {
    FakeSystem system;
    system.locale = c.locale;
    UiFontChoice choice;
    const UiFont& font = choice.ChooseUiFont(system);
    EXPECT_EQ(font.face, c.face) << std::hex << c.locale;
    EXPECT_EQ(font.size, c.size) << std::hex << c.locale;
    EXPECT_EQ(font.characterSet, c.characterSet) << std::hex << c.locale;
  }
}

TEST(UiFont, PrefersTahomaAndKeepsTheFirstChoice) {
  FakeSystem system;
  system.installed = {"Tahoma"};
  system.characterSet = std::nullopt;
  UiFontChoice choice;
  EXPECT_EQ(choice.ChooseUiFont(system).face, "Tahoma");
  EXPECT_EQ(choice.ChooseUiFont(system).characterSet, 0);
  system.locale = 0x0411;
  EXPECT_EQ(choice.ChooseUiFont(system).face, "Tahoma");
  EXPECT_EQ(system.queries, 1);
}

}  // namespace
}  // namespace zentab::texts

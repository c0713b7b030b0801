#include "app/settings.h"

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

std::string Texts(const Placement& placement) {
  return placement.left + '|' + placement.top + '|' + placement.width + '|' + placement.height;
}

class SettingsTest : public test::TemporaryFolder {
 protected:
  const test::Variable folder_{"ZENTAB_SETTINGS_DIR", Folder().string()};
  std::unique_ptr<platform::SettingsStore> store_ = platform::UserSettingsStore();
};

TEST_F(SettingsTest, AFirstStartHasTheDefaults) {
  const Settings settings = LoadSettings(*store_, "Zentab", "Zentab");
  EXPECT_EQ(settings.tableName, "relayTables.dat");
  EXPECT_EQ(settings.nomLoad1, "1");
  EXPECT_EQ(settings.absValues, "0");
  EXPECT_EQ(Texts(settings.window), "|||");
  EXPECT_EQ(Texts(LoadExchangePlacement(*store_, "Zentab")), "0|0|9270|6720");
}

TEST_F(SettingsTest, OnlyTheTableNameIsReadUnderTheExecutablesName) {
  const Settings saved = {"my.dat", "5", "1", {"-15", "30", "15000", "9000"}};
  ASSERT_FALSE(SaveSettings(*store_, "Title", saved));
  const Settings loaded = LoadSettings(*store_, "Executable", "Title");
  EXPECT_EQ(loaded.tableName, "relayTables.dat");
  EXPECT_EQ(LoadSettings(*store_, "Title", "Title").tableName, "my.dat");
  EXPECT_EQ(loaded.nomLoad1 + loaded.absValues, "51");
  EXPECT_EQ(Texts(loaded.window), "-15|30|15000|9000");
}

TEST_F(SettingsTest, TheExchangeDialogsRectangleStandsInASectionOfItsOwn) {
  ASSERT_FALSE(SaveExchangePlacement(*store_, "Exchange", {"1", "2", "3", "4"}));
  EXPECT_EQ(Texts(LoadExchangePlacement(*store_, "Exchange")), "1|2|3|4");
  EXPECT_EQ(store_->Read("Exchange", "F2Settings", "Height"), "4");
  EXPECT_EQ(Texts(LoadSettings(*store_, "Exchange", "Exchange").window), "|||");
}

TEST(Twips, AreFifteenToAPixel) {
  const struct {
    std::string_view setting;
    std::optional<int> pixels;
  } cases[] = {
      {"1500", 100}, {"-300", -20}, {"1507,5", 101}, {" 150 ", 10}, {"0", 0},
      {"", {}},      {"abc", {}},   {"15 px", {}},   {"1E300", {}}, {"-99999999999", {}},
  };
  for (const auto& [setting, pixels] : cases)
    EXPECT_EQ(PixelsFromTwips(setting), pixels) << setting;
  EXPECT_EQ(PixelsFromTwips(TwipsFromPixels(-7)), -7);
}

}  // namespace
}  // namespace zentab::app

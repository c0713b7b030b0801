#include "app/settings.h"

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

using Field = std::string Settings::*;

class SettingsTest : public test::TemporaryFolder {
 protected:
  SettingsTest() { test::SetFolderVariable("ZENTAB_SETTINGS_DIR", Folder()); }
  std::unique_ptr<platform::SettingsStore> store_ = platform::UserSettingsStore();
};

TEST_F(SettingsTest, AFirstStartHasTheDefaults) {
  const Settings settings = LoadSettings(*store_, "Zentab", "Zentab");
  EXPECT_EQ(settings.tableName, "relayTables.dat");
  EXPECT_EQ(settings.nomLoad1, "1");
  EXPECT_EQ(settings.absValues, "0");
  EXPECT_EQ(settings.left + settings.top + settings.width + settings.height, "");
}

TEST_F(SettingsTest, OnlyTheTableNameIsReadUnderTheExecutablesName) {
  const Settings saved = {"my.dat", "5", "1", "-15", "30", "15000", "9000"};
  ASSERT_FALSE(SaveSettings(*store_, "Title", saved));
  const Settings loaded = LoadSettings(*store_, "Executable", "Title");
  EXPECT_EQ(loaded.tableName, "relayTables.dat");
  EXPECT_EQ(LoadSettings(*store_, "Title", "Title").tableName, "my.dat");
  for (const Field field : {&Settings::nomLoad1, &Settings::absValues, &Settings::left,
                            &Settings::top, &Settings::width, &Settings::height}) {
    EXPECT_EQ(loaded.*field, saved.*field);
  }
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

// The settings store and the registry in INI files.
#include <thread>

#include "platform/ini_text.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "support/cases.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::BytesOf;

TEST(IniText, ChangesValuesAndLeavesAllElse) {
  for (const auto& row : test::Cases("ini.txt", "changes")) {
    IniText ini(row[2]);
    EXPECT_TRUE(ini.Set("S", row[0], row[1]));
    EXPECT_EQ(ini.Text(), row[3]);
    EXPECT_EQ(ini.Find("S", row[0]), row[1]);
  }
  IniText ini("[S]\n");
  EXPECT_FALSE(ini.Set("S", "k", "two\nlines"));
  EXPECT_EQ(ini.Text(), "[S]\n");
}

class IniFiles : public test::TemporaryFolder {
 protected:
  const test::Variable settings_{"ZENTAB_SETTINGS_DIR", (Folder() / "settings").string()};
  const test::Variable registry_{"ZENTAB_REGISTRY_DIR", Folder().string()};
  std::unique_ptr<SettingsStore> store_ = UserSettingsStore();
};

TEST_F(IniFiles, ARelativeFolderStaysWhereItWasAtTheStart) {
  fs::create_directory(Folder() / "elsewhere");
  fs::current_path(Folder());
  for (const test::Variable* const variable : {&settings_, &registry_}) variable->Set("own");
  const auto store = UserSettingsStore();
  const auto registry = SystemRegistry();
  fs::current_path(Folder() / "elsewhere");
  EXPECT_FALSE(store->Save("Zentab", "S", {{"a", "1"}}));
  EXPECT_TRUE(fs::exists(Folder() / "own/Zentab.ini"));
  Write("own/registry.ini", "[HKEY_CURRENT_USER\\K]\nv=1\n");
  EXPECT_EQ(registry->ReadRegistryValue(RootKey::CurrentUser, "K", "v"), "1");
}

#ifndef _WIN32
TEST_F(IniFiles, WithoutAVariableOfTheirOwnTheyLieWhereSettingsDo) {
  settings_.Set({});
  const test::Variable home("HOME", Folder() / "home");
  const struct {
    std::optional<std::string> configuration;
    std::string_view file;
  } cases[] = {{Folder() / "xdg", "xdg/zentab/Zentab.ini"},
               {"relative", "home/.config/zentab/Zentab.ini"},
               {{}, "home/.config/zentab/Zentab.ini"}};
  for (const auto& [configuration, file] : cases) {
    const test::Variable xdg("XDG_CONFIG_HOME", configuration);
    EXPECT_FALSE(UserSettingsStore()->Save("Zentab", "S", {{"a", "1"}})) << file;
    EXPECT_EQ(BytesOf(Folder() / file), "[S]\na=1\n") << file;
    fs::remove(Folder() / file);
  }
  home.Set({});
  EXPECT_TRUE(UserSettingsStore()->Save("Zentab", "S", {{"a", "1"}}));
}
#endif

TEST_F(IniFiles, SettingsComeBackWithoutRegardToCase) {
  EXPECT_EQ(store_->Read("Zentab", "Settings", "TableName"), std::nullopt);
  EXPECT_FALSE(store_->Save("Zentab", "Settings", {{"TableName", "C:\\ä.dat"}, {"F1Left", ""}}));
  EXPECT_EQ(store_->Read("Zentab", "settings", "TABLENAME"), "C:\\ä.dat");
  EXPECT_EQ(store_->Read("Zentab", "Settings", "F1Left"), "");
  EXPECT_EQ(store_->Read("Zentab", "F2Settings", "TableName"), std::nullopt);
  EXPECT_EQ(store_->Read("Other", "Settings", "TableName"), std::nullopt);
}

TEST_F(IniFiles, NonsenseInASettingsFileIsKeptAndSkipped) {
  fs::create_directory(Folder() / "settings");
  const std::string nonsense = "\0\xFF[\n]=[x\n=\n[Settings\nTableName=no\n\r\r[]\n"s;
  const fs::path file = Write("settings/Zentab.ini", nonsense);
  EXPECT_EQ(store_->Read("Zentab", "Settings", "TableName"), std::nullopt);
  EXPECT_FALSE(store_->Save("Zentab", "Settings", {{"TableName", "t.dat"}}));
  EXPECT_EQ(store_->Read("Zentab", "Settings", "TableName"), "t.dat");
  EXPECT_TRUE(BytesOf(file).starts_with(nonsense));
}

TEST_F(IniFiles, NothingIsSavedInPartsOrOverAFolder) {
  EXPECT_FALSE(store_->Save("Zentab", "S", {{"a", "1"}}));
  EXPECT_TRUE(store_->Save("Zentab", "S", {{"a", "2"}, {"b", "two\nlines"}}));
  EXPECT_EQ(store_->Read("Zentab", "S", "a"), "1");
  fs::create_directory(Folder() / "settings" / "Other.ini");
  EXPECT_TRUE(store_->Save("Other", "S", {{"a", "1"}}));
  EXPECT_EQ(store_->Read("Other", "S", "a"), std::nullopt);
  // What is stored already needs no writing.
  const fs::path file = Folder() / "settings/Zentab.ini";
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_FALSE(store_->Save("Zentab", "S", {{"a", "1"}}));
  EXPECT_TRUE(store_->Save("Zentab", "S", {{"a", "2"}}));
  fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
  // Nor is a file replaced that is too large to be read.
  fs::resize_file(file, kLargestIniFile);
  EXPECT_EQ(store_->Read("Zentab", "S", "a"), "1");
  fs::resize_file(file, kLargestIniFile + 1);
  EXPECT_EQ(store_->Read("Zentab", "S", "a"), std::nullopt);
  EXPECT_EQ(store_->Save("Zentab", "S", {{"a", "2"}}), std::errc::file_too_large);
}

TEST_F(IniFiles, TwoWhoSaveAtOnceKeepEachOthersSettings) {
  constexpr int kLast = 40;
  const auto save = [](const std::string& section) {
    const auto store = UserSettingsStore();
    for (int count = 1; count <= kLast; ++count) {
      EXPECT_FALSE(store->Save("Zentab", section, {{"count", std::to_string(count)}}));
      std::this_thread::yield();
    }
  };
  std::thread other(save, "Other");
  save("Settings");
  other.join();
  for (const std::string section : {"Other", "Settings"}) {
    EXPECT_EQ(store_->Read("Zentab", section, "count"), std::to_string(kLast)) << section;
  }
}

TEST_F(IniFiles, RegistryValues) {
  const std::string longest(1023, 'x');
  const struct {
    std::string written;
    std::optional<std::string> read;
  } cases[] = {
      {"C:\\MIRAX", "C:\\MIRAX"}, {"", ""},
      {"dword:0000001f", "31"},   {"dword:00000102", "258"},
      {"dword:xyz", {}},          {"dword:", {}},
      {"dword:100000000", {}},    {"cut\0here"s, "cut"},
      {longest, longest},         {longest + "x", {}},
  };
  const auto registry = SystemRegistry();
  const auto read = [&registry] {
    return registry->ReadRegistryValue(RootKey::LocalMachine, "Software\\Haldor\\MIRAXWIN",
                                       "mirax");
  };
  EXPECT_EQ(read(), std::nullopt);
  for (const auto& [written, expected] : cases) {
    Write("registry.ini",
          "[HKEY_LOCAL_MACHINE\\SOFTWARE\\HALDOR\\MIRAXWIN]\nMIRAX=" + written + "\n");
    EXPECT_EQ(read(), expected) << written;
  }
}

}  // namespace
}  // namespace zentab::platform

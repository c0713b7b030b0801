#include "platform/paths.h"

#include <sstream>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "platform/character_case.h"
#include "platform/locale_queries.h"
#include "platform/private_file.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

using Paths = test::TemporaryFolder;

// Where the file system knows no case, any spelling names the file.
std::string Spelled(const fs::path& path) {
#ifdef _WIN32
  return LowerCase(path.generic_string());
#else
  return path.string();
#endif
}

TEST_F(Paths, FixedNamesAreFoundWithoutRegardToCase) {
  fs::create_directories(Folder() / "Data" / "CURRENT");
  for (const char* const name : {"Data/CURRENT/Result.TXT", "fcc.txt", "Fcc.txt", "both", "Both"}) {
    Write(name, "");
  }
  const std::string_view cases[][2] = {
      {"data\\current\\result.txt", "Data/CURRENT/Result.TXT"},
      {"\\data\\current\\result.txt", "Data/CURRENT/Result.TXT"},
      {"FCC.TXT", "Fcc.txt"},  // the first by name
      {"both", "both"},        // as written, where there is such a file
      {"data\\missing\\Result.txt", "Data/missing/Result.txt"},
      {"relayTables.dat", "relayTables.dat"},
  };
  for (const auto& [name, found] : cases) {
    EXPECT_EQ(Spelled(FindFixedName(Folder(), name)), Spelled(Folder() / found)) << name;
  }
  ASSERT_FALSE(ChangeCurrentFolder(Folder()));
  EXPECT_EQ(Spelled(FindFixedName({}, "FCC.TXT")), Spelled("Fcc.txt"));
  EXPECT_TRUE(ChangeCurrentFolder(Folder() / "missing"));
}

#ifndef _WIN32
int LowestFreeDescriptor() {
  const int descriptor = ::open("/dev/null", O_RDONLY);
  ::close(descriptor);
  return descriptor;
}

TEST_F(Paths, PrivateFilesAreReadByTheirUserAloneAndLeaveNothing) {
  const test::Variable temporary("TMPDIR", Folder());
  const mode_t usual = ::umask(0);
  const int free = LowestFreeDescriptor();
  std::unique_ptr<PrivateFile> file;
  EXPECT_FALSE(WritePrivateFile("secret", file));
  EXPECT_EQ(fs::status(file->Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(test::BytesOf(file->Path()), "secret");
  file.reset();
  EXPECT_TRUE(fs::is_empty(Folder()));
  EXPECT_EQ(LowestFreeDescriptor(), free);
  temporary.Set(Folder() / "missing");
  EXPECT_TRUE(WritePrivateFile("secret", file));
  EXPECT_EQ(file, nullptr);
  ::umask(usual);
}

// The first of the variables that is set decides.
TEST(Locale, FollowsTheEnvironment) {
  using Value = std::optional<std::string>;
  const struct {
    Value all, type, language;
    std::uint32_t identifier;
    std::optional<int> characterSet;
  } cases[] = {
      {"de_DE.UTF-8", "ja_JP", "zh_CN", 0x0407, 0}, {{}, "ja_JP.eucJP", "zh_CN", 0x0411, 128},
      {"", "", "zh_CN@pinyin", 0x0804, 134},        {{}, {}, "pl_PL", 0x0415, 238},
      {"tlh", "ja_JP", "zh_CN", 0x0409, {}},        {{}, {}, {}, 0x0409, {}},
  };
  for (const auto& [all, type, language, identifier, characterSet] : cases) {
    const test::Variable first("LC_ALL", all), second("LC_CTYPE", type), third("LANG", language);
    EXPECT_EQ(SystemLocaleIdentifier(), identifier) << all.value_or("none");
    EXPECT_EQ(UserCharacterSet(), characterSet) << all.value_or("none");
  }
  const std::pair<int, const char*> languages[] = {
      {0,
       "en_US en_GB en_AU en_CA en_IN de_DE de_CH de_AT fr_FR fr_BE fr_CA fr_CH it_IT es_ES es_MX "
       "pt_BR pt_PT nl_NL nl_BE sv_SE nb_NO da_DK fi_FI is_IS"},
      {238, "pl_PL cs_CZ sk_SK hu_HU ro_RO hr_HR sl_SI"},
      {204, "ru_RU uk_UA bg_BG sr_RS"},
      {186, "et_EE lv_LV lt_LT"},
      {178, "ar_SA fa_IR"},
      {136, "zh_TW zh_HK"},
      {134, "zh_CN zh_SG"},
      {161, "el_GR"},
      {162, "tr_TR"},
      {177, "he_IL"},
      {163, "vi_VN"},
      {222, "th_TH"},
      {128, "ja_JP"},
      {129, "ko_KR"}};
  for (const auto& [characterSet, names] : languages) {
    std::istringstream list(names);
    for (std::string name; list >> name;) {
      const test::Variable all("LC_ALL", name);
      EXPECT_EQ(UserCharacterSet(), characterSet) << name;
    }
  }
  const test::Variable plain("LC_ALL", "C");
  EXPECT_EQ(UserDecimalSeparator(), ".");
  EXPECT_EQ(MonthAbbreviation(1) + MonthAbbreviation(2) + MonthAbbreviation(12), "JanFebDec");
}
#endif

}  // namespace
}  // namespace zentab::platform

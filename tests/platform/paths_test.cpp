#include "platform/paths.h"

#ifndef _WIN32
#include <sys/stat.h>
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
TEST_F(Paths, PrivateFilesAreReadByTheirUserAloneAndLeaveNothing) {
  const test::Variable temporary("TMPDIR", Folder());
  const mode_t usual = ::umask(0);
  std::unique_ptr<PrivateFile> file;
  EXPECT_FALSE(WritePrivateFile("secret", file));
  EXPECT_EQ(fs::status(file->Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(test::BytesOf(file->Path()), "secret");
  file.reset();
  EXPECT_TRUE(fs::is_empty(Folder()));
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
  const test::Variable plain("LC_ALL", "C");
  EXPECT_EQ(UserDecimalSeparator(), ".");
  EXPECT_EQ(MonthAbbreviation(1) + MonthAbbreviation(2) + MonthAbbreviation(12), "JanFebDec");
}
#endif

}  // namespace
}  // namespace zentab::platform

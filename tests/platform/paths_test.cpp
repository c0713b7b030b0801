#include "platform/paths.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "platform/character_case.h"
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
  test::SetFolderVariable("TMPDIR", Folder());
  const mode_t usual = ::umask(0);
  std::unique_ptr<PrivateFile> file;
  EXPECT_FALSE(WritePrivateFile("secret", file));
  EXPECT_EQ(fs::status(file->Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(test::BytesOf(file->Path()), "secret");
  file.reset();
  EXPECT_TRUE(fs::is_empty(Folder()));
  test::SetFolderVariable("TMPDIR", Folder() / "missing");
  EXPECT_TRUE(WritePrivateFile("secret", file));
  EXPECT_EQ(file, nullptr);
  ::unsetenv("TMPDIR");
  ::umask(usual);
}
#endif

}  // namespace
}  // namespace zentab::platform

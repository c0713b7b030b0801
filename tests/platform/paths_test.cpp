#include "platform/paths.h"

#include "platform/character_case.h"
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

}  // namespace
}  // namespace zentab::platform

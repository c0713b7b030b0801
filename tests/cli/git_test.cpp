// Sets git up as the documentation says and lets it merge the libraries of two colleagues.
#include <fstream>

#include "cli/command_line.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using std::string;

class VersionControl : public CommandLine {
 protected:
  void SetUp() override {
    if (Run("git --version >out 2>&1") != 0) GTEST_SKIP() << "no git here";
    ASSERT_EQ(Run("git init -q -b main . && git config user.name x && git config user.email x@y"),
              0);
    std::ifstream documentation(DOCUMENTATION);
    for (string line; std::getline(documentation, line);) {
      if (line.starts_with("    *.dat ")) Write(".gitattributes", line.substr(4) + '\n');
      if (line.starts_with("    git config ")) {
        ASSERT_EQ(Run(line), 0) << line;
      }
    }
  }

  void Commit(const string& branch, const string& library) const {
    Write("lib.dat", library);
    ASSERT_EQ(Run("git add lib.dat .gitattributes && git commit -qm " + branch), 0);
  }

  // git finds the program by its name.
  [[nodiscard]] int Git(const string& arguments) const {
    const string path = fs::path(PROGRAM).parent_path().string();
    return Run("PATH=\"" + path + ":$PATH\" git " + arguments + " >out 2>err");
  }
};

const string kBase = "{\"A\"\t(1;1) 000}\r\n{\"B\"\t(1;2) 000}\r\n{\"C\"\t(1;3) 000}\r\n";

TEST_F(VersionControl, MergesTheLibrariesOfTwoColleagues) {
  Commit("base", kBase);
  ASSERT_EQ(Git("checkout -qb theirs"), 0);
  Commit("theirs", "{\"A\"\t(1;1) 000}\r\n{\"B\"\t(1;9) 000}\r\n{\"New\"\t 000}\r\n");
  ASSERT_EQ(Git("checkout -q main"), 0);
  Commit("ours", "{\"C\"\t(1;3) 000}\r\n{\"A\"\t(1;7) 000}\r\n{\"B\"\t(1;2) 000}\r\n");
  ASSERT_EQ(Git("diff main theirs"), 0) << BytesOf(Folder() / "err");
  EXPECT_EQ(BytesOf(Folder() / "out"), "lib.dat\n- C\n~ A\n~ B\n+ New\n");
  ASSERT_EQ(Git("merge -q --no-edit theirs"), 0) << BytesOf(Folder() / "err");
  EXPECT_EQ(BytesOf(Folder() / "lib.dat"),
            "{\"A\"\t(1;7) 000}\r\n{\"B\"\t(1;9) 000}\r\n{\"New\"\t 000}\r\n");
  ASSERT_EQ(Git("diff --no-ext-diff --check HEAD"), 0);
}

TEST_F(VersionControl, AConflictIsNamedAndLeftToTheUser) {
  Commit("base", kBase);
  ASSERT_EQ(Git("checkout -qb theirs"), 0);
  Commit("theirs", "{\"A\"\t(1;5) 000}\r\n{\"B\"\t(1;2) 000}\r\n{\"C\"\t(1;4) 000}\r\n");
  ASSERT_EQ(Git("checkout -q main"), 0);
  Commit("ours", "{\"A\"\t(1;6) 000}\r\n{\"B\"\t(1;2) 000}\r\n{\"C\"\t(1;3) 000}\r\n");
  EXPECT_EQ(Git("merge -q --no-edit theirs"), 1);
  EXPECT_NE((BytesOf(Folder() / "err") + BytesOf(Folder() / "out")).find("conflict: A\n"),
            string::npos);
  EXPECT_EQ(BytesOf(Folder() / "lib.dat"),
            "{\"A\"\t(1;6) 000}\r\n{\"B\"\t(1;2) 000}\r\n{\"C\"\t(1;4) 000}\r\n");
  ASSERT_EQ(Git("commit -qam merged"), 0) << "the user took it as it is";
}

}  // namespace
}  // namespace zentab::test

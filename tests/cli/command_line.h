#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>

#include "support/cases.h"
#include "support/temporary_folder.h"

namespace zentab::test {

/// A folder in which the executable runs as in a shell.
class CommandLine : public TemporaryFolder {
 protected:
  // The exit code of a shell command in the test's folder.
  [[nodiscard]] int Run(const std::string& command) const {
    const std::string line = "cd \"" + Folder().string() + "\" && " + command;
    // What a user types goes through the shell as well.
    const int status = std::system(line.c_str());  // NOLINT(cert-env33-c)
#ifdef _WIN32
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
  }

  void RunCases(const std::string& section) const {
    for (const auto& row : Cases("cli.txt", section)) {
      ASSERT_EQ(row.size(), 5u) << row[0];
      Write("in", row[1]);
      const int exit = Run("\"" PROGRAM "\" " + row[0] + " <in >out 2>err");
      const std::string messages = BytesOf(Folder() / "err");
      EXPECT_EQ(std::to_string(exit), row[4]) << row[0] << "\n" << messages;
      EXPECT_EQ(BytesOf(Folder() / "out"), row[2]) << row[0];
      EXPECT_NE(messages.find(row[3]), std::string::npos) << row[0] << "\n" << messages;
      const bool isOurs =
          messages.starts_with("zentab-cli: ") || messages.starts_with("conflict: ");
      EXPECT_TRUE(messages.empty() || isOurs) << messages;
      EXPECT_EQ(messages.empty(), row[3].empty()) << row[0] << "\n" << messages;
      // Nothing else is said behind it; what is wrong with the arguments ends in a hint.
      const auto said = std::ranges::count(messages, '\n');
      EXPECT_TRUE(exit == 2 || said <= 1 || said == std::ranges::count(row[3], '\n')) << messages;
    }
  }
};

}  // namespace zentab::test

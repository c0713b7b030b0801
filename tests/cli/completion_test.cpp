#include <sstream>

#include "cli/command_line.h"

namespace zentab::test {
namespace {

class Completion : public CommandLine {};

TEST_F(Completion, BashFindsCommandsOptionsAndTheirValues) {
  if (Run("bash --version >out 2>&1") != 0) GTEST_SKIP() << "no bash here";
  const struct {
    const char* typed;
    const char* offered;
  } cases[] = {
      {"fun", "functions"},
      {"ex", "expand export"},
      {"--ver", "--version"},
      {"functions --f", "--format"},
      {"functions --format ''", "json text"},
      {"diff --format t", "text"},
      {"show cur", "curves.dat"},
      {"export -o cur", "curves.dat"},
      {"nothing --x", ""},
  };
  Write("curves.dat", "");
  Write("complete.sh",
        "source ./script\n"
        "COMP_WORDS=(zentab-cli \"$@\") COMP_CWORD=$#\n"
        "_zentab_cli\n"
        "printf '%s\\n' \"${COMPREPLY[@]}\" | sort | paste -sd ' '\n");
  ASSERT_EQ(Run("\"" PROGRAM "\" completion bash >script"), 0);
  for (const auto& [typed, offered] : cases) {
    ASSERT_EQ(Run(std::string("bash complete.sh ") + typed + " >out"), 0) << typed;
    EXPECT_EQ(BytesOf(Folder() / "out"), std::string(offered) + '\n') << typed;
  }
}

TEST_F(Completion, ZshTakesTheScript) {
  ASSERT_EQ(Run("\"" PROGRAM "\" completion zsh >_zentab-cli"), 0);
  const std::string script = BytesOf(Folder() / "_zentab-cli");
  EXPECT_TRUE(script.starts_with("#compdef zentab-cli\n"));
  EXPECT_NE(script.find(R"(    'list:The names of a table file'\''s entries, in file order')"),
            std::string::npos)
      << script;
  std::string commands;
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("    '")) commands += line.substr(5, line.find(':') - 5) + ' ';
  }
  EXPECT_EQ(commands,
            "list show add update remove copy rename move read export add-all diff merge text "
            "expand entry import grh grh-read curve thin resample margin fit assess clean eval "
            "functions check completion ");
  if (Run("zsh --version >out 2>&1") != 0) GTEST_SKIP() << "no zsh here";
  EXPECT_EQ(Run("zsh -n _zentab-cli"), 0);
}

}  // namespace
}  // namespace zentab::test

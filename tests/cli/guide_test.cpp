// Types what the pages of the guide tell to type, each page's in a copy of the demo installation of
// its own, and looks for what they say comes out.
#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <regex>
#include <utility>
#include <vector>

#include "cli/command_line.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using std::string;

class GuidePages : public CommandLine {
 protected:
  struct Block {
    string command;
    std::optional<string> output;
  };

  static string Plain(string text) {
    constexpr std::array<std::pair<const char*, char>, 3> kEntities = {
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}}};
    for (const auto& [entity, sign] : kEntities) {
      for (std::size_t at = text.find(entity); at != string::npos; at = text.find(entity, at + 1)) {
        text.replace(at, string(entity).size(), 1, sign);
      }
    }
    return text;
  }

  static std::vector<Block> BlocksOf(const string& page) {
    const string command = "<pre class=\"command\">", output = "<pre class=\"output\">";
    std::vector<Block> blocks;
    for (std::size_t at = page.find("<pre"); at != string::npos; at = page.find("<pre", at + 1)) {
      const std::size_t begin = page.find('>', at) + 1;
      const string text = Plain(page.substr(begin, page.find("</pre>", at) - begin)) + '\n';
      if (page.compare(at, command.size(), command) == 0) blocks.push_back({text, {}});
      if (page.compare(at, output.size(), output) == 0) blocks.back().output = text;
    }
    return blocks;
  }

  // The programs by the names that an installation gives them.
  void SetUp() override {
    fs::create_directories(Folder() / "bin");
    fs::create_symlink(PROGRAM, Folder() / "bin/zentab-cli");
#ifdef WINDOW_PROGRAM
    fs::create_symlink(WINDOW_PROGRAM, Folder() / "bin/zentab");
#endif
  }

  void RunPage(const fs::path& page) const {
    const fs::path scratch = Folder() / page.stem();
    fs::copy(DEMO_INSTALLATION, scratch, fs::copy_options::recursive);
    const string prefix =
        "cd \"" + scratch.string() + "\" && PATH=\"" + (Folder() / "bin").string() +
        ":$PATH\" LC_ALL=C.UTF-8 ZENTAB_REGISTRY_DIR=. ZENTAB_SETTINGS_DIR=. sh ../step ";
    for (const auto& [command, output] : BlocksOf(BytesOf(page))) {
#ifndef WINDOW_PROGRAM
      if (command.starts_with("zentab ")) continue;
#endif
      Write("step", "set -e\n" + command);
      EXPECT_EQ(Run(prefix + ">../out 2>../err"), 0) << command << BytesOf(Folder() / "err");
      if (output) {
        EXPECT_EQ(BytesOf(Folder() / "out"), *output) << command;
      }
    }
  }
};

TEST_F(GuidePages, CommandsDoWhatTheySay) {
  std::size_t pages = 0;
  for (const auto& entry : fs::directory_iterator(GUIDE)) {
    if (entry.path().extension() != ".html") continue;
    SCOPED_TRACE(entry.path().filename().string());
    ++pages;
    RunPage(entry.path());
  }
  EXPECT_GE(pages, 12u);
}

// What the catalogue shows: captions without their access keys, texts with anything in their
// fields.
std::vector<std::regex> ShownTexts() {
  const string catalogue = BytesOf(CATALOGUE);
  const std::regex row("\\n[A-Z0-9.]+ \\{([^}]+)\\}"), field("%[1-3]"), sign("[()+?.*^$|]");
  std::vector<std::regex> shown;
  for (std::sregex_iterator at(catalogue.begin(), catalogue.end(), row), end; at != end; ++at) {
    string text = (*at)[1];
    std::erase(text, '&');
    if (std::regex_replace(text, field, "").find_first_not_of(' ') == string::npos) continue;
    text = std::regex_replace(std::regex_replace(text, sign, "\\$&"), field, ".*");
    shown.emplace_back(text);
  }
  return shown;
}

TEST_F(GuidePages, BoldWordsAreThoseOfTheWindow) {
  const std::vector<std::regex> shown = ShownTexts();
  const auto isShown = [&](const string& text) {
    return std::ranges::any_of(shown, [&](const auto& one) { return std::regex_match(text, one); });
  };
  const std::regex bold("<b>([^<]*)</b>"), blanks("\\s+"), between(", ");
  for (const auto& entry : fs::directory_iterator(GUIDE)) {
    if (entry.path().extension() != ".html") continue;
    const string page = BytesOf(entry.path());
    for (std::sregex_iterator at(page.begin(), page.end(), bold), end; at != end; ++at) {
      const string words = Plain(std::regex_replace((*at)[1].str(), blanks, " "));
      if (isShown(words)) continue;
      // The way through a menu.
      for (std::sregex_token_iterator part(words.begin(), words.end(), between, -1), none;
           part != none; ++part) {
        EXPECT_TRUE(isShown(*part)) << entry.path().filename() << ": " << words;
      }
    }
  }
}

// A page or picture that is linked is there.
TEST_F(GuidePages, LinksLeadSomewhere) {
  for (const auto& entry : fs::directory_iterator(GUIDE)) {
    if (entry.path().extension() != ".html") continue;
    const string page = BytesOf(entry.path());
    for (const string& kind : {string("href=\""), string("src=\""), string("srcset=\"")}) {
      for (std::size_t at = page.find(kind); at != string::npos; at = page.find(kind, at + 1)) {
        const std::size_t begin = at + kind.size();
        const string target = page.substr(begin, page.find('"', begin) - begin);
        EXPECT_TRUE(fs::exists(fs::path(GUIDE) / target)) << entry.path() << ": " << target;
      }
    }
  }
}

}  // namespace
}  // namespace zentab::test

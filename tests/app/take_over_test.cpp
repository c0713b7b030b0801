#include "interchange/take_over.h"

#include <gtest/gtest.h>

#include <random>

#include "app/library_change.h"
#include "platform/file_layer.h"
#include "platform/file_text.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

using interchange::ComparedFile;
using interchange::EntryDifference;

class TakeOverTest : public test::TemporaryFolder {
 protected:
  [[nodiscard]] std::string Bytes(const std::string& name) const {
    std::string bytes;
    const auto error =
        platform::ReadWholeFile(platform::SystemFiles(), Folder() / name, 1u << 20, bytes);
    return error ? "no file" : bytes;
  }
  std::vector<EntryDifference> Compared() {
    std::vector<EntryDifference> differences;
    library_ = {Folder() / "a.dat", {}};
    other_ = {Folder() / "b.dat", {}};
    EXPECT_FALSE(interchange::Compare(platform::SystemFiles(), library_, other_, differences));
    return differences;
  }
  std::error_code Take(const std::vector<EntryDifference>& chosen) {
    return interchange::TakeOver(platform::SystemFiles(), library_, other_, chosen, change_);
  }
  std::error_code Make(const tables::LineChange& change) {
    tables::EntryMark selected = {tables::kNoLine, 0};
    return ChangeLibrary(change, session_, writer_, selected);
  }

  ComparedFile library_;
  ComparedFile other_;
  tables::LineChange change_;
  Session session_;
  tables::TableWriter writer_{platform::SystemFiles(), tables::Backups::None};
};

// Entries of five names with three tables, lines without a name, any line ends.
std::string RandomLibrary(std::mt19937& random) {
  const auto draw = [&random](unsigned count) { return random() % count; };
  constexpr const char* kEnds[] = {"\r\n", "\r\n", "\n", "\r"};
  std::string names = "AbCdE";
  std::shuffle(names.begin(), names.end(), random);
  std::string text = draw(6) == 0 ? "\xEF\xBB\xBF" : "";
  std::string end;
  for (const char name : names) {
    if (draw(3) == 0) continue;
    if (draw(6) == 0) text += std::string("no entry") + kEnds[draw(4)];
    const std::string time = std::to_string(1 + draw(3));
    end = kEnds[draw(4)];
    text += std::string("{\"") + name + "\"\t(1;5)(2;" + time + ") 001}" + end;
  }
  if (draw(3) == 0) text.resize(text.size() - end.size());
  return text;
}

TEST_F(TakeOverTest, LeavesNoChosenDifferenceAndIsTakenBackByteForByte) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    session_ = {};
    std::mt19937 random(seed);
    const std::string before = RandomLibrary(random);
    Write("a.dat", before);
    Write("b.dat", RandomLibrary(random));
    const std::vector<EntryDifference> all = Compared();
    std::vector<EntryDifference> chosen;
    for (const EntryDifference& each : all) {
      if (random() % 2 == 0) chosen.push_back(each);
    }
    if (chosen.empty()) continue;
    ASSERT_FALSE(Take(chosen)) << seed;
    ASSERT_FALSE(Make(change_)) << seed;
    const std::string after = Bytes("a.dat");
    ASSERT_EQ(Compared().size(), all.size() - chosen.size()) << seed << '\n' << after;
    ASSERT_FALSE(Make(change_.Reversed())) << seed;
    // A last line that had no end, and another line behind it, keeps the end it got.
    const bool wasOpen = before.find_last_of("\r\n") + 1 != before.size();
    const std::string back = Bytes("a.dat");
    ASSERT_TRUE(back == before || (wasOpen && back == before + "\r\n")) << seed << '\n' << back;
    ASSERT_FALSE(Make(change_)) << seed;
    ASSERT_EQ(Bytes("a.dat"), after) << seed;
  }
}

TEST_F(TakeOverTest, ChangesNothingThatSomeoneElseHasChanged) {
  const std::string library = "{\"A\"\t(1;5) 001}\r\n{\"B\"\t(1;5) 001}\r\n{\"C\"\t(1;5) 001}\r\n";
  const std::string other = "{\"A\"\t(1;6) 001}\r\n{\"C\"\t(1;6) 001}\r\n{\"D\"\t(1;6) 001}\r\n";
  const auto begin = [&] {
    Write("a.dat", library);
    Write("b.dat", other);
    return Compared();
  };
  for (const std::string& changed :
       {std::string("{\"A\"\t(1;5) 001}\r\n{\"B\"\t(99;5) 001}\r\n{\"C\"\t(1;5) 001}\r\n"),
        library + "{\"d\"\t(1;9) 001}\r\n"}) {
    const auto differences = begin();
    ASSERT_EQ(differences.size(), 4u);
    ASSERT_FALSE(Take(differences));
    Write("a.dat", changed);
    EXPECT_EQ(Make(change_), tables::kEntryChanged);
    EXPECT_EQ(Bytes("a.dat"), changed);
    EXPECT_EQ(Take(differences), tables::kEntryChanged);
  }
  const auto differences = begin();
  Write("b.dat", other + "x\r\n");
  EXPECT_EQ(Take(differences), tables::kEntryChanged);
  // What stands beside the lines concerned may change.
  const std::string more = "{\"E\"\t(1;9) 001}\r\n";
  for (const std::size_t line : {0u, 3u}) {
    begin();
    ASSERT_FALSE(Take({differences.at(line)}));
    Write("a.dat", library.substr(0, 34) + more);
    EXPECT_FALSE(Make(change_));
    EXPECT_EQ(Bytes("a.dat"), (line == 0 ? other.substr(0, 17) + library.substr(17, 17) + more
                                         : library.substr(0, 34) + more + other.substr(34)));
  }
  // What was removed comes back beside the neighbour that is left.
  for (const std::size_t left : {0u, 34u}) {
    begin();
    ASSERT_FALSE(Take({differences.at(1)}));
    ASSERT_FALSE(Make(change_));
    const std::string beside = library.substr(left, 17), removed = library.substr(17, 17);
    Write("a.dat", more + more + beside + more);
    EXPECT_FALSE(Make(change_.Reversed()));
    EXPECT_EQ(Bytes("a.dat"),
              more + more + (left == 0 ? beside + removed : removed + beside) + more);
  }
}

}  // namespace
}  // namespace zentab::app

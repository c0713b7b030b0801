#include "app/entry_commands.h"

#include <functional>
#include <set>

#include "app/library_commands.h"
#include "app/session_history.h"
#include "platform/character_case.h"
#include "support/temporary_folder.h"
#include "texts/line_encoding.h"

namespace zentab::app {
namespace {

using test::BytesOf;
using Places = std::vector<std::size_t>;

const std::string kA = "{\"A\"\t(1;1) 001}\r\n", kB = "{\"B\"\t(2;2) 002}\n",
                  kC = "{\"C\"\t(3;3) 000}\r\n", kEmpty = "no entry\r\n",
                  kOpen = "{\"C\"\t(3;3) 000}", kTheirs = "{\"B\"\t(9;9) 002}\n";

class EntryCommandsTest : public test::TemporaryFolder {
 protected:
  using Command = std::function<std::error_code(EntryCommands&, EntryMarks&)>;

  void Open(const std::string& bytes) {
    EXPECT_FALSE(library_.SetActiveTable(Write("t.dat", bytes).string()));
    history_ = std::make_unique<SessionHistory>(session_, writer_);
  }
  [[nodiscard]] std::string File() const { return BytesOf(Folder() / "t.dat"); }
  // The names that are left to be shown.
  [[nodiscard]] std::string Names(const EntryMarks& marks) const {
    std::string names;
    for (const std::size_t place : PlacesOf(session_.listing, marks)) {
      names += session_.listing.names[place] + '|';
    }
    return names;
  }

  Session session_;
  tables::TableWriter writer_{platform::SystemFiles(), tables::Backups::None};
  LibraryCommands library_{session_, writer_};
  EntryCommands commands_{session_, writer_};
  std::unique_ptr<SessionHistory> history_;
};

const auto kRemove = [](EntryCommands& on, EntryMarks& marks) { return on.Remove(marks); };
const auto kCopy = [](EntryCommands& on, EntryMarks& marks) { return on.Duplicate(marks); };
auto Rename(const char* name) {
  return [name](EntryCommands& on, EntryMarks& marks) { return on.Rename(marks, name); };
}
auto Move(std::size_t place) {
  return [place](EntryCommands& on, EntryMarks& marks) { return on.Move(marks, place); };
}
auto Sort(EntryOrder order) {
  return [order](EntryCommands& on, EntryMarks&) {
    bool isChanged = false;
    return on.Sort(order, isChanged);
  };
}

TEST_F(EntryCommandsTest, CopiesOfManyHaveNamesOfTheirOwn) {
  std::string bytes = kA;
  Places places;
  for (std::size_t number = 2; number < 25; ++number) {
    places.push_back(number - 2);
    if (number > 2) bytes += "{\"a #" + std::to_string(number) + "\"\t 000}\n";
  }
  Open(bytes);
  EntryMarks marks = MarksOf(session_.listing, places);
  EXPECT_FALSE(commands_.Duplicate(marks));
  std::set<std::string> names;
  for (const std::string& name : session_.listing.names) names.insert(platform::LowerCase(name));
  EXPECT_EQ(names.size(), 2 * places.size());
  EXPECT_TRUE(names.contains("a #2"));
}

// Each is one step: taken back, every byte is what it was, and made again as well.
TEST_F(EntryCommandsTest, ChangeWhatIsMeantAndNoOtherByte) {
  const struct {
    const char* what;
    std::string before;
    Places chosen;  // among the names
    Command command;
    std::string after;
    std::string shown;
  } cases[] = {
      {"remove apart", kA + kB + kC, {2, 0}, kRemove, kB, ""},
      {"remove all", kA + kB + kOpen, {0, 1, 2}, kRemove, "", ""},
      {"remove the open end", kA + kB + kOpen, {1, 2}, kRemove, kA, ""},
      {"remove behind a line that is none",
       kEmpty + kA + kB + kC,
       {0, 1},
       kRemove,
       kEmpty + kC,
       ""},
      {"remove one of two names", kA + kB + kA + kC, {0, 1}, kRemove, kA + kC, ""},
      {"copy", kA + kB, {0}, kCopy, kA + "{\"A #2\"\t(1;1) 001}\r\n" + kB, "A #2|"},
      {"copy of the open end",
       kA + kOpen,
       {0, 1},
       kCopy,
       kA + "{\"A #2\"\t(1;1) 001}\r\n" + kOpen + "\r\n{\"C #2\"\t(3;3) 000}",
       "A #2|C #2|"},
      {"copy of a copy",
       "{\"a #2\"\t 000}\n{\"A #3\"\t 000}\n",
       {0},
       kCopy,
       "{\"a #2\"\t 000}\n{\"a #4\"\t 000}\n{\"A #3\"\t 000}\n",
       "a #4|"},
      {"copy that no name fits", "{\"A(\"\t(1;1) 000}\n", {0}, kCopy, "{\"A(\"\t(1;1) 000}\n", ""},
      {"rename",
       kEmpty + kA + kB,
       {1},
       Rename(" Ö 2 "),
       kEmpty + kA + texts::EncodeLine("{\"Ö 2\"\t(2;2) 002}") + "\n",
       "Ö 2|"},
      {"rename in other letters", kA, {0}, Rename("a"), "{\"a\"\t(1;1) 001}\r\n", "a|"},
      {"rename as another", kA + kB, {0}, Rename("b"), kA + kB, ""},
      {"rename as no line can", kA, {0}, Rename("x\"y"), kA, ""},
      {"rename to nothing", kA, {0}, Rename("  "), kA, ""},
      {"move up",
       kEmpty + kA + kB + kC,
       {2},
       Move(0),
       kEmpty + kC + "{\"A\"\t(1;1) 001}\n{\"B\"\t(2;2) 002}\r\n",
       "C|"},
      {"move down over the open end",
       kA + kOpen,
       {0},
       Move(2),
       "{\"C\"\t(3;3) 000}\r\n{\"A\"\t(1;1) 001}",
       "A|"},
      {"move apart together",
       kA + kB + kC,
       {2, 0},
       Move(3),
       "{\"B\"\t(2;2) 002}\r\n{\"A\"\t(1;1) 001}\n" + kC,
       "A|C|"},
      {"move to where it is", kA + kB, {1}, Move(7), kA + kB, "B|"},
      {"sort", kC + kB + kEmpty + kA, {0}, Sort(EntryOrder::Name), kA + kB + kEmpty + kC, "C|"},
      {"sort by instrument", kC + kB + kA, {}, Sort(EntryOrder::Instrument), kA + kB + kC, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Open(c.before);
    EntryMarks marks = MarksOf(session_.listing, c.chosen);
    const std::error_code error = c.command(commands_, marks);
    const std::string file = File();
    EXPECT_EQ(file, c.after);
    EXPECT_EQ(error.value() == 0, file != c.before || c.what == std::string("move to where it is"));
    if (!error) {
      EXPECT_EQ(Names(marks), c.shown);
    }
    if (file == c.before) continue;
    EXPECT_FALSE(history_->Undo().error);
    EXPECT_EQ(File(), c.before);
    EXPECT_FALSE(history_->Redo().error);
    EXPECT_EQ(File(), file);
  }
}

TEST_F(EntryCommandsTest, LeaveAloneWhatOthersHaveChanged) {
  const std::pair<const char*, Command> commands[] = {
      {"remove", kRemove}, {"copy", kCopy}, {"rename", Rename("N")}, {"move", Move(0)}};
  for (const auto& [what, command] : commands) {
    SCOPED_TRACE(what);
    Open(kA + kB + kC);
    EntryMarks marks = MarksOf(session_.listing, {1});
    Write("t.dat", kA + kTheirs + kC);
    EXPECT_EQ(command(commands_, marks), tables::kEntryChanged);
    EXPECT_EQ(File(), kA + kTheirs + kC);
    EXPECT_EQ(Names(marks), "");
    // What stands elsewhere now is still the one that was meant; a place is not.
    Open(kA + kB + kC);
    marks = MarksOf(session_.listing, {1});
    Write("t.dat", kC + kTheirs + kA + kB);
    const bool isMove = what == std::string("move");
    EXPECT_EQ(command(commands_, marks) == tables::kEntryChanged, isMove);
    EXPECT_TRUE(File().starts_with(kC + kTheirs + kA));
    EXPECT_EQ(File() == kC + kTheirs + kA + kB, isMove);
  }
  // One of its names is taken by now: what was removed does not come back beside it.
  Open(kA + kB + kC);
  EntryMarks both = MarksOf(session_.listing, {0, 1});
  EXPECT_FALSE(commands_.Remove(both));
  Write("t.dat", kC + kTheirs);
  EXPECT_EQ(history_->Undo().error, tables::kEntryChanged);
  EXPECT_EQ(File(), kC + kTheirs);
}

// What the grid was read from is followed.
TEST_F(EntryCommandsTest, TheGridKnowsItsEntryByItsNewName) {
  Open(kA + kB);
  tables::EntryMark read = session_.listing.MarkOf(1);
  ASSERT_FALSE(library_.ReadEntry(read));
  EntryMarks marks = MarksOf(session_.listing, {0});
  ASSERT_FALSE(commands_.Rename(marks, "Other"));
  EXPECT_EQ(session_.source->name, "B");
  marks = MarksOf(session_.listing, {1});
  ASSERT_FALSE(commands_.Rename(marks, "New"));
  EXPECT_EQ(session_.source->name, "New");
  EXPECT_FALSE(library_.UpdateEntry(marks.front()));
  marks = MarksOf(session_.listing, {0, 1});
  ASSERT_FALSE(commands_.Remove(marks));
  EXPECT_FALSE(session_.source);
}

TEST(EntryOrder, GoesByInstrumentNumbersAndPlainLetters) {
  tables::TableListing listing;
  listing.names = {"Feeder 10", "Zebra",  "feeder 2",  "Äpfel",   "Feeder 010", "Straße",
                   "Strasse 1", "Feeder", "apfelwein", "",        "×÷ÿ",        "bΩ",
                   "b\"",       "c x",    "feeder 03", "Feeder 4"};
  listing.instruments.assign(listing.names.size(), tables::Instrument::None);
  listing.instruments[1] = tables::Instrument::Voltage;
  listing.instruments[2] = tables::Instrument::Current;
  EXPECT_EQ(PlacesInOrder(EntryOrder::Name, listing, {}),
            (Places{9, 3, 8, 12, 11, 13, 7, 2, 14, 15, 0, 4, 5, 6, 1, 10}));
  EXPECT_EQ(PlacesInOrder(EntryOrder::Instrument, listing, {}),
            (Places{2, 1, 9, 3, 8, 12, 11, 13, 7, 14, 15, 0, 4, 5, 6, 10}));
  EXPECT_EQ(PlacesInOrder(EntryOrder::File, listing, {}).at(7), 7u);
  EXPECT_TRUE(PlacesInOrder(EntryOrder::Name, {}, {}).empty());
}

}  // namespace
}  // namespace zentab::app

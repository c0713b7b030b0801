#include "app/session_history.h"

#include <functional>

#include "app/library_commands.h"
#include "app/recovery_files.h"
#include "editor/cell_editor.h"
#include "editor/clipboard_text.h"
#include "exchange/entry_copy.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

using editor::EditStep;
using test::BytesOf;

// Some thousand files are written, whose way to the disk is not the point.
std::filesystem::path InMemory() {
  const std::filesystem::path memory = "/dev/shm";
  const bool isThere = memory.is_absolute() && std::filesystem::exists(memory);
  return isThere ? memory : std::filesystem::temp_directory_path();
}

// What a user sees of a session: table, modified mark and file.
struct Seen {
  std::string table;
  bool modified;
  std::string file;

  friend bool operator==(const Seen&, const Seen&) = default;
};

class SessionHistoryTest : public test::TemporaryFolder {
 protected:
  SessionHistoryTest() : TemporaryFolder(InMemory()) {
    Open("{\"A\"\t(1.5;10)(2;4.25) 011}\r\n{\"B\"\t(3;1) 102}\n\r{\"C\"\t 001}");
  }

  void Open(std::string_view bytes) {
    EXPECT_FALSE(commands_.SetActiveTable(Write("t.dat", bytes).string()));
    session_.source.reset();
    history_ = std::make_unique<SessionHistory>(session_, writer_);
  }
  [[nodiscard]] std::string File() const { return BytesOf(Folder() / "t.dat"); }
  [[nodiscard]] Seen Now() const {
    return {StateOf(session_).table, session_.table.tableModified, File()};
  }

  void Type(int row, int column, std::string_view text) {
    history_->Remember(EditStep::Typing);
    session_.table.grid.MoveTo(row, column);
    cell_.GridEdit(editor::kOpenWithText);
    for (std::size_t end = 1; end <= text.size(); ++end) cell_.ChangeText(text.substr(0, end), end);
    cell_.Hide();
  }
  using Command = std::error_code (LibraryCommands::*)(tables::EntryMark&);
  std::error_code Run(EditStep kind, Command command, std::size_t index) {
    history_->Remember(kind);
    tables::EntryMark mark = session_.listing.MarkOf(index);
    return (commands_.*command)(mark);
  }
  std::error_code Read(std::size_t index) {
    return Run(EditStep::Read, &LibraryCommands::ReadEntry, index);
  }
  std::error_code Update(std::size_t index) {
    return Run(EditStep::Update, &LibraryCommands::UpdateEntry, index);
  }
  std::error_code Remove(std::size_t index) {
    return Run(EditStep::Remove, &LibraryCommands::RemoveEntry, index);
  }
  void Add(std::string_view name) {
    history_->Remember(EditStep::AddNew);
    std::error_code error;
    EXPECT_EQ(commands_.EnterName(name, error), NameResult::Added);
  }
  void Import(std::string_view lines) {
    history_->Remember(EditStep::Import);
    const auto source = Write("other.dat", lines);
    tables::TableListing listing;
    EXPECT_FALSE(tables::ListEntries(platform::SystemFiles(), source, listing));
    const std::vector<bool> all(listing.lines.size(), true);
    EXPECT_FALSE(exchange::CopyEntries(writer_, source, listing, all, Folder() / "t.dat").error);
    EXPECT_FALSE(commands_.FillEntryList());
  }

  Session session_;
  tables::TableWriter writer_{platform::SystemFiles(), tables::Backups::None};
  LibraryCommands commands_{session_, writer_};
  std::unique_ptr<SessionHistory> history_;
  editor::CellEditor cell_{session_.table};
};

// Two hundred walks of commands, each beside a row of pictures of all that the user saw.
TEST_F(SessionHistoryTest, EveryWalkGoesBackAndForth) {
  const unsigned walks = Folder().parent_path() == "/dev/shm" ? 200 : 10;
  for (unsigned seed = 0; seed < walks; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t n) { return random() % n; };
    const char* const starts[] = {
        "", "{\"A\"\t(1.5;10) 011}", "{\"A\"\t(1;1) 011}\r\n{\"B\"\t(3;1) 102}\n",
        "\xEF\xBB\xBF{\"A\"\t(1;1) 000}\r{\"A\"\t(2;1) 000}\r{\"C\"\t(2;1) 000}"};
    Open(starts[seed % std::size(starts)]);
    std::vector<Seen> seen = {Now()};
    std::size_t at = 0;
    // Whether the library was changed.
    const std::vector<std::function<bool()>> commands = {
        [&] {
          Type(1 + static_cast<int>(below(26)), 1 + static_cast<int>(below(2)),
               std::to_string(below(100)));
          return false;
        },
        [&] {
          history_->Remember(EditStep::Paste);
          editor::PasteText(session_.table, {1, 1, 1, 1}, std::to_string(below(9)) + "\t2\r\n3",
                            ".");
          return false;
        },
        [&] {
          history_->Remember(EditStep::Clear);
          editor::ClearArea(session_.table, {1, 1, 2, 2}, ".");
          return false;
        },
        [&] {
          history_->Remember(EditStep::TimeUnit);
          session_.modes.milliseconds = !session_.modes.milliseconds;
          return false;
        },
        [&] {
          static_cast<void>(Read(below(4)));
          return false;
        },
        [&] { return !Update(below(4)); },
        [&] { return !Remove(below(4)); },
        [&] {
          Add("N" + std::to_string(random()));
          return true;
        },
        [&] {
          Import("{\"I\"\t(1;2) 001}\n{\"J\"\t(2;3) 001}");
          return true;
        }};
    for (int step = 0; step < 60; ++step) {
      const std::size_t choice = below(commands.size() + 6);
      if (choice < commands.size()) {
        const std::string before = Now().table;
        // What changes nothing is no step, though it may set or clear the mark.
        if (commands[choice]() || Now().table != before) {
          seen.resize(++at);
          seen.push_back(Now());
        } else {
          seen[at] = Now();
        }
      } else if (choice % 2 == 0) {
        const HistoryOutcome outcome = history_->Undo();
        ASSERT_EQ(outcome.step.has_value(), at > 0);
        if (at > 0) --at;
      } else {
        const HistoryOutcome outcome = history_->Redo();
        ASSERT_EQ(outcome.step.has_value(), at + 1 < seen.size());
        if (at + 1 < seen.size()) ++at;
      }
      ASSERT_EQ(Now(), seen[at]) << step;
    }
    while (at-- > 0) {
      EXPECT_FALSE(history_->Undo().error);
      ASSERT_EQ(Now(), seen[at]);
    }
  }
}

// What someone else does to the file between a command and its undoing.
TEST_F(SessionHistoryTest, UndoingMeetsWhatOthersHaveWritten) {
  const std::string a = "{\"A\"\t(1;1) 001}\r\n", b = "{\"B\"\t(2;2) 001}\r\n",
                    other = "{\"O\"\t 000}\r\n";
  const std::string ours = "{\"B\"\t 001}\r\n", added = "{\"N\"\t 001}\r\n";
  struct Case {
    const char* what;
    std::string start;
    EditStep command;  // on B
    std::string meanwhile;
    std::string undone;  // empty: refused
  };
  const Case cases[] = {
      {"update", a + b, EditStep::Update, a + ours, a + b},
      {"update, moved", a + b, EditStep::Update, other + a + ours, other + a + b},
      {"update, changed", a + b, EditStep::Update, a + other, ""},
      {"update, file gone", a + b, EditStep::Update, "", ""},
      {"update of an open end", a + b.substr(0, b.size() - 2), EditStep::Update, a + ours + other,
       a + b + other},
      {"remove", a + b + other, EditStep::Remove, other + a + other, other + a + b + other},
      {"remove, neighbours gone", a + b, EditStep::Remove, other, other + b},
      {"remove, all gone", a + b, EditStep::Remove, "", b},
      {"remove, added again", a + b, EditStep::Remove, a + ours, ""},
      {"remove in front of an open end", b + a.substr(0, a.size() - 2), EditStep::Remove,
       a.substr(0, a.size() - 2), b + a.substr(0, a.size() - 2)},
      {"add", a, EditStep::AddNew, a + added + other, a + other},
      {"add behind an open end", a.substr(0, a.size() - 2), EditStep::AddNew, a + added,
       a.substr(0, a.size() - 2)},
      {"add behind an open end, moved", a.substr(0, a.size() - 2), EditStep::AddNew,
       a + added + other, a + other},
      {"add, removed", a, EditStep::AddNew, a, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Open(c.start);
    const std::size_t index = c.start.starts_with("{\"B") ? 0 : 1;
    session_.instrument = tables::Instrument::Current;
    if (c.command == EditStep::AddNew) {
      Add("N");
    } else {
      EXPECT_FALSE(c.command == EditStep::Update ? Update(index) : Remove(index));
    }
    Write("t.dat", c.meanwhile);
    const HistoryOutcome outcome = history_->Undo();
    EXPECT_EQ(outcome.error == tables::kEntryChanged, c.undone.empty());
    EXPECT_EQ(File(), c.undone.empty() ? c.meanwhile : c.undone);
    // Either way the next step is at hand, and made again it leads to where it was.
    EXPECT_FALSE(history_->UndoStep());
    EXPECT_EQ(history_->RedoStep().has_value(), !c.undone.empty());
    if (history_->Redo().step) {
      EXPECT_EQ(File().size(), c.meanwhile.size());
    }
  }
}

TEST_F(SessionHistoryTest, AFileThatIsGoneForAMomentCostsNoStep) {
  EXPECT_FALSE(Remove(0));
  std::filesystem::rename(Folder() / "t.dat", Folder() / "away.dat");
  EXPECT_EQ(history_->Undo().error, std::errc::no_such_file_or_directory);
  std::filesystem::rename(Folder() / "away.dat", Folder() / "t.dat");
  EXPECT_FALSE(history_->Undo().error);
  EXPECT_TRUE(File().starts_with("{\"A\""));
}

TEST_F(SessionHistoryTest, TheModifiedMarkFollowsWhatIsStored) {
  Open("{\"A\"\t(1;1) 001}\r\n");
  EXPECT_FALSE(Read(0));
  history_->Remember(EditStep::Paste);
  editor::PasteText(session_.table, {1, 1, 1, 1}, "5", ".");
  Type(1, 2, "7");
  EXPECT_TRUE(session_.table.tableModified);
  EXPECT_FALSE(Update(0));
  const auto marks = [&](auto step, int times) {
    std::string all;
    for (; times > 0; --times) {
      (*history_.*step)();
      all += session_.table.tableModified ? 'm' : '-';
      all += StateOf(session_).DiffersFromStored() ? 'd' : '-';
    }
    return all;
  };
  EXPECT_EQ(marks(&SessionHistory::Undo, 4), "md-d----");
  EXPECT_EQ(marks(&SessionHistory::Redo, 4), "---dmd--");
  // The file keeps what was stored when another one is chosen: going back is an edit then.
  EXPECT_FALSE(commands_.SetActiveTable(Write("u.dat", "").string()));
  history_->EndLibrary();
  EXPECT_EQ(marks(&SessionHistory::Undo, 1), "md");
}

TEST_F(SessionHistoryTest, TextsOfAnyLengthComeBack) {
  editor::CurveGrid& grid = session_.table.grid;
  session_.instrument = tables::Instrument::Third;
  for (const std::size_t length : {127u, 128u, 300u, 70'000u}) {
    const std::string text(length, '1');
    grid.SetCell(1, 1, text);
    grid.SetCell(26, 2, "behind");
    const auto state = StateOf(session_);
    const KeptTable kept{KeptTable::Kind::Unsaved, 1, "x", state};
    EXPECT_EQ(ReadRecoveryText(RecoveryText(kept))->state.table, state.table);
    grid.ClearPoints();
    Restore(state, session_);
    EXPECT_EQ(grid.Cell(1, 1), text);
    EXPECT_EQ(grid.Cell(26, 2), "behind");
  }
}

TEST_F(SessionHistoryTest, StepsTakeAFewMegabytesUpToALimit) {
  editor::EditHistory history;
  for (int row = 1; row <= editor::kLastRow; ++row) {
    session_.table.grid.SetCell(row, 1, std::to_string(1000.125 + row).substr(0, 8));
    session_.table.grid.SetCell(row, 2, std::to_string(10.125 / row).substr(0, 8));
  }
  auto state = StateOf(session_);
  for (int step = 0; step < 10'000; ++step) {
    history.Remember(EditStep::Typing, state);
    session_.table.grid.SetCell(1 + step % 26, 1, std::to_string(step));
    state.table = StateOf(session_).table;
  }
  EXPECT_NE(history.ToUndo(state), nullptr);
  EXPECT_EQ(history.Size(), 10'000u);
  EXPECT_LT(history.Bytes(), 8u << 20);
  // The oldest ones go; the last one stays, however large it is.
  for (const auto& [size, steps] : {std::pair(editor::EditHistory::kMostBytes / 5 * 2, 2u),
                                    {editor::EditHistory::kMostBytes, 1u}}) {
    for (int step = 0; step < 3; ++step) {
      tables::LineChange change;
      change.before.reserve(size);
      history.Attach(std::move(change), state);
    }
    EXPECT_EQ(history.Size(), steps);
  }
}

}  // namespace
}  // namespace zentab::app

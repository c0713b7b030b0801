#include "app/library_commands.h"

#include "app/session_texts.h"
#include "editor/chart_curve.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

using test::BytesOf;
using NameList = std::vector<std::string>;

constexpr std::string_view kTable = "{\"A\"\t(1.5;10)(2;4.25) 011}\r\n{\"B\"\t(3;1) 102}\r\n";

class LibraryCommandsTest : public test::TemporaryFolder {
 protected:
  LibraryCommandsTest() {
    session_.localeDecimalSeparator = ",";
    EXPECT_FALSE(commands_.SetActiveTable(Write("t.dat", kTable).string()));
  }
  [[nodiscard]] const std::string& Cell(int row, int column) const {
    return session_.table.grid.Cell(row, column);
  }

  using Command = std::error_code (LibraryCommands::*)(tables::EntryMark&);
  std::error_code Run(Command command, std::size_t index) {
    tables::EntryMark mark = session_.listing.MarkOf(index);
    return (commands_.*command)(mark);
  }
  std::error_code Read(std::size_t index) { return Run(&LibraryCommands::ReadEntry, index); }
  std::error_code Update(std::size_t index) { return Run(&LibraryCommands::UpdateEntry, index); }
  std::error_code Remove(std::size_t index) { return Run(&LibraryCommands::RemoveEntry, index); }
  NameResult Enter(std::string_view name) {
    std::error_code error;
    return commands_.EnterName(name, error);
  }

  Session session_;
  tables::TableWriter writer_{platform::SystemFiles(), tables::Backups::None};
  LibraryCommands commands_{session_, writer_};
};

TEST_F(LibraryCommandsTest, ReadBringsPointsAndSettings) {
  session_.table.grid.SetCell(26, 2, "left over");
  session_.table.tableModified = true;
  EXPECT_EQ(session_.listing.names, (NameList{"A", "B"}));
  EXPECT_FALSE(Read(0));
  EXPECT_EQ(Cell(1, 1) + " " + Cell(1, 2) + " " + Cell(2, 2) + " " + Cell(26, 2), "1,5 10 4,25 ");
  EXPECT_FALSE(session_.table.tableModified);
  EXPECT_FALSE(session_.modes.milliseconds);
  EXPECT_TRUE(session_.modes.absoluteValues);
  EXPECT_EQ(session_.instrument, tables::Instrument::Current);
  EXPECT_TRUE(Read(2));
  // What an entry does not tell stays.
  EXPECT_FALSE(commands_.SetActiveTable(Write("u.dat", "{\"C\"\t(1;2)(2;3) 1x0}\r\n").string()));
  EXPECT_FALSE(Read(0));
  EXPECT_TRUE(session_.modes.milliseconds && session_.modes.absoluteValues);
  EXPECT_EQ(session_.instrument, tables::Instrument::Current);
}

TEST_F(LibraryCommandsTest, NumbersStayTheirOwnInEveryLocale) {
  // U+066B is that of ps_AF; Windows takes what the user gives.
  for (const std::string separator : {".", ",", "\xD9\xAB", "'", "::"}) {
    SCOPED_TRACE(separator);
    session_.localeDecimalSeparator = separator;
    EXPECT_FALSE(Read(0));
    EXPECT_EQ(Cell(1, 1) + " " + Cell(2, 2), "1" + separator + "5 4" + separator + "25");
    const std::vector<editor::ChartPoint> chart = {{1, 1.5, 10.0}, {2, 2.0, 4.25}};
    EXPECT_EQ(editor::CurveOf(session_.table.grid, separator).points, chart);
    EXPECT_FALSE(Update(0));
    EXPECT_EQ(BytesOf(Folder() / "t.dat"), kTable);
    // What was typed as people elsewhere do is understood beside it.
    for (const std::string other : {".", ","}) {
      session_.table.grid.SetCell(1, 1, "1" + other + "5");
      EXPECT_FALSE(Update(0));
      EXPECT_EQ(BytesOf(Folder() / "t.dat"), kTable) << other;
    }
    session_.modes.absoluteValues = false;
    session_.modes.pickup = "1" + separator + "5";
    session_.modes.multiplier = editor::MultiplierWhileTyping("0" + separator + "5", separator);
    EXPECT_EQ(editor::Scaled(ModesInFiles(session_), "3", "3"), (editor::ScaledPoint{4.5, 1.5}));
    session_.texts.labels.loadRelative = "%T";
    EXPECT_EQ(LabelsFor(session_).load, "1.5;2");
  }
}

TEST_F(LibraryCommandsTest, UpdateAndRemoveWorkOnTheirLineOnly) {
  EXPECT_FALSE(Read(0));
  session_.table.grid.SetCell(2, 1, "2,5");
  session_.table.tableModified = true;
  EXPECT_FALSE(Update(1));
  EXPECT_FALSE(session_.table.tableModified);
  EXPECT_EQ(BytesOf(Folder() / "t.dat"),
            "{\"A\"\t(1.5;10)(2;4.25) 011}\r\n{\"B\"\t(1.5;10)(2.5;4.25) 011}\r\n");
  session_.table.tableModified = true;
  EXPECT_FALSE(Remove(0));
  EXPECT_EQ(session_.listing.names, NameList{"B"});
  EXPECT_TRUE(session_.table.tableModified);
  EXPECT_EQ(Cell(2, 1), "2,5");
  EXPECT_FALSE(Remove(0));
  EXPECT_EQ(BytesOf(Folder() / "t.dat"), "");
  EXPECT_TRUE(Remove(0));
  EXPECT_TRUE(Update(0));
}

TEST_F(LibraryCommandsTest, ANameIsEnteredOnce) {
  session_.table.tableModified = true;
  EXPECT_EQ(Enter("   "), NameResult::Empty);
  EXPECT_EQ(Enter(" b "), NameResult::Duplicate);
  EXPECT_EQ(Enter("  Übung "), NameResult::Added);
  EXPECT_EQ(Enter("üBUNG"), NameResult::Duplicate);
  EXPECT_EQ(session_.listing.names, (NameList{"A", "B", "Übung"}));
  EXPECT_EQ(BytesOf(Folder() / "t.dat"), std::string(kTable) +
                                             "{\"\xDC"
                                             "bung\"\t 000}\r\n");
  EXPECT_TRUE(session_.table.tableModified);
}

TEST_F(LibraryCommandsTest, AMissingTableIsEmptyUntilSomethingIsAdded) {
  EXPECT_FALSE(commands_.SetActiveTable((Folder() / "new.dat").string()));
  EXPECT_EQ(session_.listing.names, NameList());
  EXPECT_EQ(Enter("first"), NameResult::Added);
  EXPECT_EQ(BytesOf(Folder() / "new.dat"), "{\"first\"\t 000}\r\n");
}

}  // namespace
}  // namespace zentab::app

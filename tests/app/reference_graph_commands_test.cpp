#include "app/reference_graph_commands.h"

#include <algorithm>
#include <ctime>

#include "app/session_texts.h"
#include "platform/paths.h"
#include "support/environment.h"
#include "support/failing_file_layer.h"
#include "support/simulated_modules.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

class ReferenceGraphCommandsTest : public test::TemporaryFolder {
 protected:
  ReferenceGraphCommandsTest() {
    test::InstallSimulators(Folder());
    session_.baseName = "Zentab";
    session_.installFolder = platform::ToText(Folder());
    session_.localeDecimalSeparator = ",";
    session_.texts.logSwitch = true;
    session_.modes.pickup = "0,5";
    Fill({"1,5", "10", "2", "4,25", "3", "2"});
    instruments_.Choose(tables::Instrument::Current);
    EXPECT_TRUE(instruments_.Open().open);
    std::filesystem::remove(Folder() / "Zentab.log");
  }

  void Fill(const std::vector<std::string>& cells) {
    session_.table.grid.ClearPoints();
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
      const int place = static_cast<int>(cell);
      session_.table.grid.SetCell(1 + place / 2, 1 + place % 2, cells[cell]);
    }
  }
  [[nodiscard]] std::string Cells() const {
    std::string cells;
    for (int row = 1; row <= 26; ++row) {
      const std::string& load = session_.table.grid.Cell(row, 1);
      if (!load.empty()) cells += load + ' ' + session_.table.grid.Cell(row, 2) + '|';
    }
    return cells;
  }
  // The log's lines without their times.
  [[nodiscard]] std::string Log() const {
    std::ifstream log(Folder() / "Zentab.log");
    std::string lines;
    for (std::string line; std::getline(log, line);) {
      if (line.ends_with('\r')) line.pop_back();
      lines += line.erase(1, 5) + '|';
    }
    return lines;
  }
  [[nodiscard]] std::string Reference() const {
    return test::BytesOf(Folder() / "data/current/reference.grh");
  }
  [[nodiscard]] SetGraphOutcome SetGraph(std::string_view tableName) {
    const SetGraphOutcome outcome = commands_.WriteGraph(tableName);
    if (outcome.hasPoints && !outcome.error) commands_.HandOverGraph();
    return outcome;
  }
  [[nodiscard]] std::filesystem::path Graph() const { return Folder() / "data/currtmp.grh"; }

  const test::Variable locale_{"LC_ALL", "C"};
  Session session_;
  test::FailingFileLayer files_;
  EventLog log_{session_, platform::SystemFiles()};
  testset::InstrumentSession instruments_{
      Folder(), {[this](std::string_view line) { log_.WriteLogLine(line); }, [] {}}};
  ReferenceGraphCommands commands_{session_, files_, log_, instruments_};
};

TEST_F(ReferenceGraphCommandsTest, TheInstrumentKeepsTheCurveAndImportBringsItBack) {
  const std::string curve = Cells();
  EXPECT_FALSE(SetGraph("SI 100 %D").error);
  session_.modes.absoluteValues = true;
  session_.modes.pickup = "7,5 %E";
  EXPECT_FALSE(SetGraph("SI").error);
  EXPECT_EQ(Log(),
            "  I Writing 2 lines from SI 100 %D absolute values|  SetRefgraph 1|"
            "  I Writing 2 lines from SI using 7,5 %E|  SetRefgraph 1|");
  EXPECT_EQ(instruments_.UsablePickup(), 7.5f);
  EXPECT_EQ(Reference(), test::BytesOf(Graph()));
  EXPECT_NE(Reference().find("\r\n1.500000 10.000000 2.000000 4.250000 0.0"), std::string::npos);
  // Midnight may have passed.
  const auto dated = [](int daysAgo) {
    std::tm day = LocalTime();
    day.tm_mday -= daysAgo;
    std::mktime(&day);
    char month[8];
    char year[8];
    std::strftime(month, sizeof month, "%b", &day);
    std::strftime(year, sizeof year, "%Y", &day);
    return std::string("@A ") + month + ' ' + std::to_string(day.tm_mday) + ' ' + year + ' ';
  };
  EXPECT_TRUE(Reference().starts_with(dated(0)) || Reference().starts_with(dated(1)));
  Fill({"9", "9"});
  EXPECT_FALSE(commands_.ImportGraph(Graph()).error);
  EXPECT_EQ(Cells(), curve);
  EXPECT_TRUE(session_.table.tableModified);
}

TEST_F(ReferenceGraphCommandsTest, WhatIsNotWrittenIsNotHandedOver) {
  EXPECT_FALSE(SetGraph("").error);
  const std::string before = test::BytesOf(Graph());
  const std::string log = Log();
  Fill({"1", "2", "3", "4"});
  files_.bytesThatFit = 3;
  EXPECT_TRUE(SetGraph("").error);
  EXPECT_EQ(test::BytesOf(Graph()), before);
  EXPECT_EQ(Log(), log);
  files_.bytesThatFit = test::FailingFileLayer::kNever;
  EXPECT_FALSE(SetGraph("").error);
  EXPECT_NE(test::BytesOf(Graph()), before);
  const std::string written = Log();
  Fill({"", "2", "3", "4"});
  EXPECT_FALSE(SetGraph("").hasPoints);
  EXPECT_EQ(Log(), written);
  test::SetInstrument(Folder(), "current", "fail = refgraph\n");
  Fill({"5", "2", "6", "4"});
  const std::string reference = Reference();
  EXPECT_FALSE(SetGraph("").error);
  EXPECT_TRUE(Log().ends_with("  SetRefgraph 0|"));
  EXPECT_EQ(Reference(), reference);
}

TEST_F(ReferenceGraphCommandsTest, AFileIsHandedOverWithoutAnOpenModuleAndNotToTheThirdChoice) {
  instruments_.CloseRequest();
  EXPECT_FALSE(SetGraph("").error);
  EXPECT_TRUE(Log().ends_with("  SetRefgraph 0|"));
  EXPECT_EQ(Reference(), "(missing)");
  instruments_.Choose(tables::Instrument::Third);
  EXPECT_FALSE(SetGraph("").error);
  EXPECT_TRUE(Log().ends_with("  SetRefgraph 0|"));
}

TEST_F(ReferenceGraphCommandsTest, ImportLogsWhatItSkipsAndAFaultChangesNothing) {
  const std::string curve = Cells();
  std::string graph = "\n2\n1 9 2 8 0 0 0\n0 0\n3 7 4.5 6 0 0 0\n0 0\n";
  const auto bad = commands_.ImportGraph(Write("bad.grh", graph));
  ASSERT_TRUE(bad.error);
  EXPECT_EQ(bad.error->line, 7u);
  EXPECT_EQ(Cells(), curve);
  EXPECT_FALSE(session_.table.tableModified);
  EXPECT_EQ(Log(), "");
  graph += "\n0\n\n2\n1 0 0\n2\n0\n0\n0 65280\n";
  EXPECT_EQ(commands_.ImportGraph(Write("gap.grh", graph)).skipped, 1u);
  EXPECT_EQ(Cells(), "2 9|4 8|");
  EXPECT_EQ(Log(), "  Imported |  Imported Skipping point=4.500000 6.000000|");
}

}  // namespace
}  // namespace zentab::app

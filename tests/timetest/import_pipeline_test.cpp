#include <cmath>

#include "app/time_test_commands.h"
#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using std::string;
using timetest::ImportOutcome;
using timetest::ImportResult;

class TimeTestImport : public test::TemporaryFolder {
 protected:
  TimeTestImport() {
    std::filesystem::create_directories(Folder() / "data/current");
    Write("fo.txt", "HEADING.CURRENT.TIMETEST.TXT {T}\n");
    session.installFolder = Folder().string();
    session.localeDecimalSeparator = ",";
    session.instrument = tables::Instrument::Current;
    session.texts.import.timeout = "800";
    session.modes.absoluteValues = session.modes.milliseconds = true;
    KeepEdit();
  }

  void KeepEdit() {
    session.table.grid.ClearPoints();
    session.table.grid.SetCell(1, 1, "old");
    session.table.tableModified = true;
  }
  // One entry a time, loads 1, 2 and so on.
  void Measure(const std::vector<double>& times) const {
    string bytes = "T\r\n";
    for (std::size_t at = 0; at < times.size(); ++at) {
      const string number = std::to_string(at + 1);
      bytes += number + "\t" + number + "\t" + texts::NumberText(times[at], ".") + "\t\r\n";
    }
    Write("data/current/result.txt", bytes);
  }
  ImportResult Import(const ImportFields& fields,
                      const timetest::ProgressReport& progress = nullptr) {
    ImportTimeTestOutcome outcome =
        TimeTestCommands(session, files).ImportTimeTest(fields, progress);
    traceError = outcome.traceError;
    return outcome.result;
  }
  [[nodiscard]] string Times() const {
    string times;
    for (int row = editor::kFirstRow; row <= editor::kLastRow; ++row) {
      const string& cell = session.table.grid.Cell(row, editor::kTimeColumn);
      if (!cell.empty()) times += (times.empty() ? "" : " ") + cell;
    }
    return times;
  }
  [[nodiscard]] bool GridStayed() const {
    return session.table.tableModified && session.table.grid.Cell(1, 1) == "old" && Times().empty();
  }
  [[nodiscard]] string Trace() const { return test::BytesOf(Folder() / "Zentab_ImportTable.txt"); }

  Session session;
  test::FailingFileLayer files;
  std::error_code traceError;
};

TEST_F(TimeTestImport, StagesFollowTheFields) {
  using enum texts::EquationStage;
  const auto equation = [this](texts::EquationStage stage, std::size_t number) -> string& {
    return session.texts.equations[static_cast<std::size_t>(stage)][number];
  };
  equation(Difference, 10) = "t0*0";
  equation(Value, 2) = "t0*2";
  equation(Value, 9) = "t0+tMax";
  equation(Value, 10) = "-t0";
  equation(Filter, 8) = "z*100+y-(t1>15)*5000";
  equation(Filter, 9) = "t1+1000";
  // difference, filter, mean; times; what the grid shows
  const struct {
    ImportFields fields;
    std::vector<double> times;
    string expected;
  } cases[] = {
      {{"0", "0", "0"}, {900, 900, 900, 5, 4, 3}, "900 900 5 4 3"},
      {{"0", "0", "0"}, {5, 900, 4, 900, 900, 3, 900}, "5 900 4 3 900"},
      {{"0", "0", "0"}, {5, 4, 800, 799.5, 3}, "5 4 799,5 3"},
      {{"0", "7", "0"}, {900, 900, 5, 900}, "900 900 5 900"},
      {{"0", "7", "0"}, {900, 900, 900, 5, 900, 4}, "900 900 900 5 900 4"},
      {{"0", "6", "0"}, {900, 900, 900, 5, 4}, "900 5 4"},
      {{"0", "1", "0"}, {900, 900, 5, 4}, "900 5 4"},
      {{"0", "2", "0"}, {9, 20, 7, 6}, "9 7 6"},
      {{"0", "3", "0"}, {9, 20, 7, 6}, "9 9 7 6"},
      {{"0", "8", "0"}, {9, 20, 7, 6, 5}, "9 403 404 5"},
      {{"0", "9", "0"}, {9, 20, 7, 6}, "9 1020 1007 6"},
      {{"0", "0", "3"}, {3, 6, 9, 0}, "3 4,5 6 5"},
      {{"0", "0", "2"}, {3, 6, 9, 1}, "6 12 18 2"},
      {{"0", "0", "9"}, {3, 6, 9, 1}, "12 15 18 10"},
      {{"10", "0", "10"}, {3, 6, 9, 1}, "-3 -6 -9 -1"},
      // Fields that are no such number leave what the last import had.
      {{"x", "", "100000"}, {3, 6, 9, 1}, "-3 -6 -9 -1"},
      {{"0", "-4", "-3"}, {9, 20, 7, 6}, "9 20 7 6"},
      {{"32767", "32767", "1,6"}, {3, 6, 9, 1}, "6 12 18 2"},
  };
  for (const auto& row : cases) {
    KeepEdit();
    Measure(row.times);
    ASSERT_EQ(Import(row.fields).outcome, ImportOutcome::Imported);
    EXPECT_EQ(Times(), row.expected);
    EXPECT_FALSE(session.table.tableModified);
  }
  EXPECT_EQ(session.texts.import.differenceType, 0) << "where the built-in measure was used";
  const string comma = "\xD9\xAB";
  session.localeDecimalSeparator = comma;
  session.modes.absoluteValues = false;
  session.modes.pickup = "0" + comma + "8";
  ASSERT_EQ(Import({"0", "0", "1" + comma + "6"}).outcome, ImportOutcome::Imported);
  EXPECT_EQ(Times(), "6 12 18 2");
  EXPECT_EQ(session.table.grid.Cell(1, 1), "1" + comma + "25");
}

TEST_F(TimeTestImport, AnEquationThatIsNoneEndsItWithTheGridAsItWas) {
  Measure({9, 8, 7, 6});
  for (auto& stage : session.texts.equations) stage[4] = "t0+*";
  const std::pair<ImportFields, string> cases[] = {
      {{"4", "4", "4"}, "Error in diff equation #4"},
      {{"0", "4", "4"}, "Error in filter equation #4"},
      {{"0", "6", "4"}, "Error in value equation #6"},
  };
  for (const auto& [fields, error] : cases) {
    const ImportResult result = Import(fields);
    EXPECT_EQ(result.outcome, ImportOutcome::EquationError);
    EXPECT_EQ(result.error, error);
    EXPECT_TRUE(GridStayed());
  }
}

TEST_F(TimeTestImport, SelectsTheEndsAndTheBends) {
  std::vector<double> times;
  for (int at = 0; at < 300; ++at) times.push_back(at < 150 ? 1000 - at : 850);
  times[40] += 3;
  session.texts.import.timeout = "2000";
  Measure(times);
  ASSERT_EQ(Import({"0", "0", "0"}).outcome, ImportOutcome::Imported);
  const auto& grid = session.table.grid;
  string loads;
  for (int row = 1; row <= 26; ++row) loads += grid.Cell(row, 1) + " ";
  EXPECT_TRUE(loads.starts_with("1 40 41 42 151 300 ")) << loads;
  session.texts.equations[0][1] = "1e6";
  EXPECT_TRUE(Import({"1", "0", "0"}).selectedByRank);
}

TEST_F(TimeTestImport, BadFilesLeaveTheGrid) {
  const string empty[] = {"",
                          "T",
                          "1\t2\t3\t\n",
                          "T\nrubbish",
                          "T\n1\t7",
                          "T\n" + string(1, '\0'),
                          "T\n" + string(1'000'000, '2')};
  for (const string& bytes : empty) {
    Write("data/current/result.txt", bytes);
    EXPECT_FALSE(TimeTestCommands(session, files).HasTimeTest());
    EXPECT_EQ(Import({"0", "3", "5"}).outcome, ImportOutcome::NoEntries) << bytes.substr(0, 20);
    EXPECT_TRUE(GridStayed());
  }
  // A line without a tab is its own value, and one of ten million digits no number.
  Write("data/current/result.txt", "T\n" + string(10'000'000, '1'));
  EXPECT_EQ(Import({}).outcome, ImportOutcome::Imported);
  EXPECT_EQ(session.table.grid.Cell(1, 1) + session.table.grid.Cell(1, 2), "00");
  session.instrument = tables::Instrument::None;
  EXPECT_EQ(Import({}).outcome, ImportOutcome::NoEntries);
  session.instrument = tables::Instrument::Voltage;
  EXPECT_EQ(Import({}).outcome, ImportOutcome::NoEntries);
}

TEST_F(TimeTestImport, AStoppedImportChangesNothing) {
  Measure(std::vector<double>(9000, 1.0));
  session.texts.equations[0][1] = session.texts.equations[1][1] = "t0";
  session.texts.equations[2][1] = "t1";
  session.texts.import.printTable = true;
  for (const char* mean : {"1", "3"}) {
    int reports = 0;
    const auto count = [&](double fraction) {
      ++reports;
      return fraction > 0.0 && fraction <= 1.0;
    };
    ASSERT_EQ(Import({"1", "1", mean}, count).outcome, ImportOutcome::Imported);
    const int all = reports;
    EXPECT_GE(all, 12) << "two at every stage, two for each of them in the trace";
    for (int last = 0; last < all; ++last) {
      KeepEdit();
      reports = 0;
      const auto stop = [&](double) { return reports++ < last; };
      EXPECT_EQ(Import({"1", "1", mean}, stop).outcome, ImportOutcome::Stopped);
      EXPECT_TRUE(GridStayed());
      EXPECT_EQ(reports, last + 1) << "it is asked no more";
    }
  }
}

TEST_F(TimeTestImport, TheTraceHoldsTheStages) {
  Measure({9, 20, 7, 6.00049});
  Import({"0", "2", "2"});
  EXPECT_EQ(Trace(), "(missing)");
  session.texts.import.printTable = true;
  Import({"3", "2", "2"});
  const string expected =
      "Diff Type 0\r\n"
      "1.000\t9.000\t100000.0000\r\n2.000\t20.000\t24.0000\r\n"
      "3.000\t7.000\t12.0005\r\n4.000\t6.000\t100000.0000\r\n"
      "\r\n After filter and mean\r\nFilter Type 2\r\nMean Over 2\r\n"
      "1.000\t9.000\t100000.0000\r\n3.000\t8.000\t12.0005\r\n4.000\t6.500\t100000.0000\r\n"
      "\r\n Selected entries\r\n"
      "1.000\t9.000\t100000.0000\r\n3.000\t8.000\t12.0005\r\n4.000\t6.500\t100000.0000\r\n";
  EXPECT_EQ(Trace(), expected);
  // An import that ends early leaves the stages before it; one that cannot write goes on.
  session.texts.equations[2][4] = "(";
  session.texts.equations[0][5] = "t0";
  Import({"5", "4", "2"});
  EXPECT_TRUE(Trace().starts_with("Diff Type 5\r\n"));
  EXPECT_EQ(Trace().find("\r\n "), string::npos);
  const string before = Trace();
  for (std::size_t bytes = 0; bytes < 100; bytes += 9) {
    files.bytesThatFit = bytes;
    EXPECT_EQ(Import({"0", "2", "2"}).outcome, ImportOutcome::Imported);
    EXPECT_EQ(traceError, std::errc::no_space_on_device);
    EXPECT_EQ(Trace(), before);
  }
}

}  // namespace
}  // namespace zentab::app

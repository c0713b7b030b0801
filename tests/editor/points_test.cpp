#include <functional>
#include <map>

#include "editor/number_tools.h"
#include "editor/point_checks.h"
#include "editor/row_tools.h"
#include "support/cases.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

constexpr std::string_view kSeparator = ",";

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t at = 0; at != std::string_view::npos;) {
    const std::size_t end = text.find(separator, at);
    parts.emplace_back(text.substr(at, end - at));
    at = end == std::string_view::npos ? end : end + 1;
  }
  return parts;
}

WorkingTable TableOf(const std::string& points) {
  WorkingTable table;
  int row = kFirstRow;
  for (const std::string& point : Split(points, '|')) {
    const std::vector<std::string> cells = Split(point, ';');
    table.grid.SetCell(row, kLoadColumn, cells[0]);
    if (cells.size() > 1) table.grid.SetCell(row, kTimeColumn, cells[1]);
    ++row;
  }
  return table;
}

std::string PointsOf(const CurveGrid& grid) {
  std::string points;
  for (int row = kFirstRow; row <= LastUsedRow(grid); ++row) {
    if (row > kFirstRow) points += '|';
    points += grid.Cell(row, kLoadColumn);
    const std::string& time = grid.Cell(row, kTimeColumn);
    if (!time.empty()) points += ';' + time;
  }
  return points;
}

struct Given {
  WorkingTable table;
  RowSpan rows{};
  double number = 0.0;
  ValueModes modes{};

  [[nodiscard]] CellArea Area(int left, int right) const {
    return {rows.first, left, rows.last, right};
  }
};

ToolOutcome Use(const std::string& tool, Given& given) {
  const auto loads = given.Area(kLoadColumn, kLoadColumn);
  const auto times = given.Area(kTimeColumn, kTimeColumn);
  WorkingTable& table = given.table;
  given.modes.pickup = texts::NumberText(given.number, ",");
  given.modes.absoluteValues = tool == "relative";
  given.modes.milliseconds = tool == "s";
  const int whole = static_cast<int>(given.number);
  const std::map<std::string, std::function<ToolOutcome()>> tools = {
      {"insert", [&] { return InsertRows(table, given.rows); }},
      {"delete", [&] { return DeleteRows(table, given.rows); }},
      {"up", [&] { return MoveRowsUp(table, given.rows); }},
      {"down", [&] { return MoveRowsDown(table, given.rows); }},
      {"sort", [&] { return SortByLoad(table, given.rows, kSeparator); }},
      {"reverse", [&] { return Reverse(table, given.rows); }},
      {"scale loads", [&] { return ScaleNumbers(table, loads, given.number, kSeparator); }},
      {"scale times", [&] { return ScaleNumbers(table, times, given.number, kSeparator); }},
      {"shift loads", [&] { return ShiftNumbers(table, loads, given.number, kSeparator); }},
      {"shift times", [&] { return ShiftNumbers(table, times, given.number, kSeparator); }},
      {"round", [&] { return RoundNumbers(table, given.Area(1, 2), whole, kSeparator); }},
      {"fill",
       [&] {
         return FillBetween(table, given.rows, whole, {true, true}, kSeparator);
       }},
      {"fill linear",
       [&] {
         return FillBetween(table, given.rows, whole, {false, false}, kSeparator);
       }},
      {"absolute", [&] { return ConvertLoads(table, given.modes, kSeparator); }},
      {"relative", [&] { return ConvertLoads(table, given.modes, kSeparator); }},
      {"ms", [&] { return ConvertTimes(table, given.modes, kSeparator); }},
      {"s", [&] { return ConvertTimes(table, given.modes, kSeparator); }},
  };
  return tools.at(tool)();
}

TEST(PointTools, ChangeWhatTheySayAndLeaveTheRest) {
  for (const auto& row : test::Cases("points.txt", "tools")) {
    const std::string what = row[0] + ' ' + row[1] + ' ' + row[2] + ": " + row[3];
    const std::vector<std::string> span = Split(row[1], '-');
    Given given{TableOf(row[3]), {std::stoi(span[0]), std::stoi(span[1])}};
    given.number = *texts::WholeNumber(texts::FileNumber(row[2], ","));
    const ToolOutcome outcome = Use(row[0], given);
    const bool isDone = outcome == ToolOutcome::Done;
    EXPECT_EQ(std::to_string(static_cast<int>(outcome)), row.size() > 5 ? row[5] : "0") << what;
    EXPECT_EQ(PointsOf(given.table.grid), row[4]) << what;
    EXPECT_EQ(given.table.tableModified, row[3] != row[4]) << what;
    if (row[0] == "absolute" || row[0] == "relative") {
      EXPECT_EQ(given.modes.absoluteValues, isDone == (row[0] == "absolute")) << what;
    }
    EXPECT_EQ(given.modes.milliseconds, isDone ? row[0] == "ms" : row[0] == "s") << what;
  }
}

// A table goes there and back without a digit that nobody typed.
TEST(PointTools, ConversionsThereAndBackLeaveNoTrace) {
  for (const char* const pickup : {"3", "0,7", "1,1", "0,3", "127,3"}) {
    WorkingTable table = TableOf("1;0,1|1,05;0,035|1,1;7,123|2,5;100|17,33;1E-05|33,3;0,3");
    const std::string before = PointsOf(table.grid);
    for (const bool absolute : {true, false}) {
      ValueModes modes;
      modes.pickup = pickup;
      modes.absoluteValues = absolute;
      for (int way = 0; way < 2; ++way) {
        EXPECT_EQ(ConvertLoads(table, modes, kSeparator), ToolOutcome::Done);
        EXPECT_EQ(ConvertTimes(table, modes, kSeparator), ToolOutcome::Done);
      }
      EXPECT_EQ(PointsOf(table.grid), before) << pickup;
    }
  }
}

TEST(PointChecks, FindWhatNobodyMeans) {
  for (const auto& row : test::Cases("points.txt", "checks")) {
    const CurveGrid grid = TableOf(row[0]).grid;
    std::string found;
    for (const CellFault& fault : FaultsOf(grid, kSeparator)) {
      if (!found.empty()) found += '|';
      found += std::to_string(fault.row) + '.' + std::to_string(fault.column) + ':' +
               FaultText(texts::PointTexts(), fault, grid.Cell(fault.row, fault.column));
    }
    EXPECT_EQ(found, row.size() > 1 ? row[1] : "") << row[0];
  }
}

}  // namespace
}  // namespace zentab::editor

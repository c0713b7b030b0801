#include "editor/chart_curve.h"

#include <gtest/gtest.h>

namespace zentab::editor {
namespace {

TEST(ChartCurve, FollowsTheRowsThatAreNotEmpty) {
  struct Cell {
    int row, column;
    std::string_view text;
  };
  const struct {
    std::string what;
    std::vector<Cell> cells;
    int rowCount;
    std::vector<int> pointRows;
    bool shown;
  } cases[] = {
      {"empty", {}, 1, {}, false},
      {"one point", {{1, 1, "2"}, {1, 2, "3"}}, 1, {1}, false},
      {"two points", {{1, 1, "2,5"}, {1, 2, "3"}, {2, 1, "4"}, {2, 2, "0.5"}}, 2, {1, 2}, true},
      {"a load alone", {{2, 1, "2"}}, 2, {}, true},
      {"a time alone, far down", {{1, 1, "1"}, {1, 2, "1"}, {26, 2, "2"}}, 26, {1}, true},
      {"a text", {{1, 1, "1"}, {1, 2, "1"}, {2, 1, "x"}, {2, 2, "1"}}, 2, {1}, true},
      {"zero", {{1, 1, "0"}, {1, 2, "1"}, {2, 1, "1"}, {2, 2, "1"}}, 2, {1, 2}, true},
      {"zero time", {{1, 1, "1"}, {1, 2, "0"}, {2, 1, "1"}, {2, 2, "1"}}, 2, {1, 2}, true},
      {"negative", {{1, 1, "1"}, {1, 2, "-1"}, {2, 1, "1"}, {2, 2, "1"}}, 2, {1, 2}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CurveGrid grid;
    for (const Cell& cell : c.cells) grid.SetCell(cell.row, cell.column, cell.text);
    const ChartCurve curve = CurveOf(grid, ",");
    std::vector<int> rows;
    for (const ChartPoint& point : curve.points) rows.push_back(point.row);
    EXPECT_EQ(rows, c.pointRows);
    EXPECT_EQ(curve.rowCount, c.rowCount);
    EXPECT_EQ(curve.IsShown(), c.shown);
    EXPECT_TRUE(c.what != "two points" ||
                (curve.load == Range{2.5, 4} && curve.time == Range{0.5, 3}));
  }
}

}  // namespace
}  // namespace zentab::editor

#include "editor/grid_points.h"
#include "editor/grid_tidy.h"
#include "support/cases.h"

namespace zentab::editor {
namespace {

TEST(CurveGrid, KeepsHeadingsAndRowNumbersApartFromThePoints) {
  CurveGrid grid;
  EXPECT_EQ(grid.Cell(0, 1) + grid.Cell(0, 2) + grid.Cell(0, 0), "LoadLevelTime");
  EXPECT_EQ(grid.Cell(1, 0) + grid.Cell(26, 0), "126");
  for (const auto& [row, column] : {std::pair(0, 1), {1, 0}, {27, 1}, {1, 3}, {-1, 1}, {1, -1}}) {
    EXPECT_FALSE(grid.SetCell(row, column, "x")) << row << ' ' << column;
    grid.MoveTo(row, column);
  }
  EXPECT_EQ(grid.Row() * 10 + grid.Col(), 11);
}

TEST(GridPoints, ShowNormalisedNumbersInTheUsersForm) {
  CurveGrid grid;
  grid.SetCell(5, 2, "left over");
  ShowPoints(grid, {{"1.50", ""}, {"2.5", "abc"}, {"1E3", "0.00001"}, {"3x", "-4"}}, ",");
  const std::string_view expected[][2] = {
      {"1,5", "0"}, {"2,5", "0"}, {"1000", "1E-05"}, {"3", "-4"}, {"", ""}};
  for (int row = 1; row <= 5; ++row) {
    EXPECT_EQ(grid.Cell(row, kLoadColumn), expected[row - 1][0]);
    EXPECT_EQ(grid.Cell(row, kTimeColumn), expected[row - 1][1]);
  }
  ShowPoints(grid, std::vector<tables::CurvePoint>(30, {"1", "2"}), ".");
  EXPECT_EQ(PointRows(grid, "."), std::vector<tables::CurvePoint>(26, {"1", "2"}));
}

TEST(GridTidy, RoundsNumbersAndRemovesForeignCharacters) {
  for (const auto& row : test::Cases("tidy.txt", "cells")) {
    const std::string &before = row[0], &after = row[1];
    CurveGrid grid;
    grid.SetCell(1, kLoadColumn, before);
    grid.SetCell(26, kTimeColumn, before);
    TidyGrid(grid, ",");
    EXPECT_EQ(grid.Cell(1, kLoadColumn), after) << before;
    EXPECT_EQ(grid.Cell(26, kTimeColumn), after) << before;
  }
}

}  // namespace
}  // namespace zentab::editor

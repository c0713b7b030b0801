#include "editor/clipboard_text.h"

#include <sstream>

#include "support/cases.h"

namespace zentab::editor {
namespace {

constexpr CellArea kFourRows{1, 1, 4, 2};

CellArea Area(const std::string& text) {
  CellArea area{};
  std::istringstream(text) >> area.top >> area.left >> area.bottom >> area.right;
  return area;
}

// 1 10, 2 20, 3 30, 4 40, and a last row.
WorkingTable FilledTable() {
  WorkingTable table;
  for (int row = 1; row <= 4; ++row) {
    table.grid.SetCell(row, kLoadColumn, std::to_string(row));
    table.grid.SetCell(row, kTimeColumn, std::to_string(10 * row));
  }
  table.grid.SetCell(kLastRow, kTimeColumn, "26");
  return table;
}

TEST(ClipboardText, CopiesTheSelectedCells) {
  for (const auto& row : test::Cases("clipboard.txt", "copy")) {
    EXPECT_EQ(BlockText(FilledTable().grid, Area(row[0])), row[1]) << row[0];
  }
  WorkingTable table;
  table.grid.SetCell(1, kLoadColumn, " 1,5x\"");
  EXPECT_EQ(BlockText(table.grid, {1, 1, 1, 1}), " 1,5x\"") << "exactly what the cell shows";
}

TEST(ClipboardText, PastesIntoTheSelectedCells) {
  for (const auto& row : test::Cases("clipboard.txt", "paste")) {
    WorkingTable table = FilledTable();
    PasteText(table, Area(row[0]), row[1], ",");
    EXPECT_EQ(BlockText(table.grid, kFourRows), row[2]) << row[0] << ": " << row[1];
    EXPECT_EQ(table.grid.Cell(kLastRow, kTimeColumn), "26");
    EXPECT_FALSE(table.tableModified);
  }
}

TEST(ClipboardText, PastesWhatASpreadsheetCopied) {
  for (const auto& row : test::Cases("clipboard.txt", "calc")) {
    WorkingTable table;
    PasteText(table, {1, 1, 1, 1}, row[1], row[0]);
    EXPECT_EQ(BlockText(table.grid, {1, 1, 6, 2}), row[2]) << row[1];
  }
}

TEST(ClipboardText, DropsWhatTheGridHasNoRowsFor) {
  std::string text;
  for (int row = 1; row <= 40; ++row) text += std::to_string(row) + "\t1\t2\n";
  WorkingTable table;
  PasteText(table, {20, 1, 20, 1}, text, ".");
  EXPECT_EQ(BlockText(table.grid, {25, 1, 26, 2}), "6\t1\r7\t1");
  EXPECT_EQ(BlockText(table.grid, {18, 1, 20, 2}), "\t\r\t\r1\t1");
}

TEST(ClipboardText, ClearsTheSelectedCellsAndTidiesTheRest) {
  for (const auto& row : test::Cases("clipboard.txt", "clear")) {
    WorkingTable table = FilledTable();
    ClearArea(table, Area(row[0]), ",");
    EXPECT_EQ(BlockText(table.grid, kFourRows), row[1]) << row[0];
    EXPECT_EQ(table.grid.Cell(kLastRow, kTimeColumn), Area(row[0]).bottom < kLastRow ? "26" : "");
    EXPECT_TRUE(table.tableModified);
  }
  WorkingTable table;
  table.grid.SetCell(9, kLoadColumn, "1.23456 ");
  PasteText(table, {1, 1, 1, 1}, "", ",");
  EXPECT_EQ(table.grid.Cell(9, kLoadColumn), "1.23456 ") << "nothing was pasted";
  ClearArea(table, {1, 1, 1, 1}, ",");
  EXPECT_EQ(table.grid.Cell(9, kLoadColumn), "1,235");
}

TEST(ClipboardText, TellsRowsFromALineEnd) {
  for (const char* const one : {"", "1", "1\r\n", "1\t2\n", "\r"})
    EXPECT_FALSE(HasSeveralRows(one));
  for (const char* const more : {"1\r2", "1\n\n", "\n1", "1\r\n2\r\n"}) {
    EXPECT_TRUE(HasSeveralRows(more)) << more;
  }
}

}  // namespace
}  // namespace zentab::editor

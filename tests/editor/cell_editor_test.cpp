#include "editor/cell_editor.h"

#include <gtest/gtest.h>

namespace zentab::editor {
namespace {

TEST(CellEditor, OpensOnTheCellsTextOrReplacesItByACharacter) {
  const struct {
    int code;
    std::string_view text;
    bool replaces;
  } cases[] = {
      {0, "1.5", false},   {13, "1.5", false}, {' ', "1.5", false},
      {'!', "1.5", false}, {34, "1.5", false}, {35, "#", true},
      {'7', "7", true},    {0x141, "Ł", true}, {-1, "\xEF\xBF\xBF", true},
  };
  for (const auto& [code, text, replaces] : cases) {
    WorkingTable table;
    table.grid.SetCell(1, 1, "1.5");
    CellEditor editor(table);
    editor.GridEdit(code);
    EXPECT_TRUE(editor.IsVisible());
    EXPECT_EQ(editor.Text(), text) << code;
    EXPECT_EQ(table.grid.Cell(1, 1), text) << code;
    EXPECT_EQ(table.tableModified, replaces) << code;
    EXPECT_EQ(editor.Caret(), replaces ? 1 : 1000) << code;
  }
}

TEST(CellEditor, WritesThroughAndSplitsAtATab) {
  const struct {
    int column;
    std::string_view typed;  // "|" stands for the caret where that is not at the end
    std::string_view load;
    std::string_view time;
  } cases[] = {
      {1, "abc", "abc", "old"},
      {1, "", "", "old"},
      {1, "2\t5", "2", "5"},
      {1, "\t5", "", "5"},
      {1, "2\t", "2", ""},
      {1, "2\t5\t6", "2", "5\t6"},
      {2, "7", "old", "7"},
      {2, "7\t8", "old", "7"},
      // What was pasted ends at its line end; what stood behind it stays.
      {1, "5\n6|1.4", "51.4", "old"},
      {1, "1.4\r\n5", "1.4", "old"},
      {1, "15\r6\r\n|.4", "15.4", "old"},
      {2, "ä5\n\n|\n1.4", "old", "ä51.4"},
      {1, "2\t5\n7\t7|1.4", "2", "51.4"},
  };
  for (const auto& [column, typed, load, time] : cases) {
    WorkingTable table;
    table.grid.SetCell(3, kLoadColumn, "old");
    table.grid.SetCell(3, kTimeColumn, "old");
    table.grid.MoveTo(3, column);
    CellEditor editor(table);
    std::string text(typed);
    const std::size_t caret = std::min(text.find('|'), text.size());
    if (caret < text.size()) text.erase(caret, 1);
    editor.ChangeText(text, caret);
    EXPECT_EQ(table.grid.Cell(3, kLoadColumn), load) << typed;
    EXPECT_EQ(table.grid.Cell(3, kTimeColumn), time) << typed;
    EXPECT_EQ(editor.Text(), table.grid.Cell(3, column)) << typed;
    EXPECT_TRUE(table.tableModified);
  }
}

TEST(CellEditor, MovesByTheKeyTable) {
  using enum EditorKey;
  const struct {
    EditorKey key;
    int row, column, newRow, newColumn;
    bool focusGridFirst, reopen;
  } cases[] = {
      {Enter, 1, 1, 1, 2, true, true},   {Enter, 1, 2, 2, 1, true, true},
      {Enter, 26, 1, 26, 2, true, true}, {Enter, 26, 2, 26, 1, true, true},
      {Down, 25, 2, 26, 2, true, true},  {Down, 26, 1, 26, 1, true, true},
      {Up, 2, 1, 1, 1, true, true},      {Up, 1, 2, 1, 2, true, true},
      {Right, 4, 1, 4, 2, false, true},  {Right, 4, 2, 4, 2, false, true},
      {Left, 4, 2, 4, 1, false, true},   {Left, 4, 1, 4, 1, false, true},
      {Escape, 5, 2, 5, 2, true, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.key) * 10000 + c.row * 100 + c.column);
    const EditorMove move = CellEditor::MoveFor(c.key, c.row, c.column);
    EXPECT_EQ(move.row, c.newRow);
    EXPECT_EQ(move.column, c.newColumn);
    EXPECT_EQ(move.focusGridFirst, c.focusGridFirst);
    EXPECT_EQ(move.reopen, c.reopen);
  }
}

}  // namespace
}  // namespace zentab::editor

#include "editor/cell_editor.h"

#include <cstdint>

#include "texts/characters.h"

namespace zentab::editor {
namespace {

constexpr int kCaretAtEnd = 1000;

std::string CharacterText(int code) {
  // A negative code is a 16-bit character whose highest bit is set.
  return texts::FromCharacters(std::u32string(1, static_cast<std::uint16_t>(code)));
}

}  // namespace

void CellEditor::GridEdit(int keyAscii) {
  visible_ = true;
  if (keyAscii >= 0 && keyAscii <= kOpenWithText) {
    text_ = table_.grid.Cell(table_.grid.Row(), table_.grid.Col());
    caret_ = kCaretAtEnd;
  } else {
    const std::string character = CharacterText(keyAscii);
    ChangeText(character, character.size());
    caret_ = 1;
  }
}

void CellEditor::ChangeText(std::string_view typed, std::size_t caret) {
  CurveGrid& grid = table_.grid;
  std::string text(typed);
  const std::size_t lineEnd = text.find_first_of("\r\n");
  if (lineEnd < caret) text.erase(lineEnd, caret - lineEnd);
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  const std::size_t tab = text.find('\t');
  text_ = text.substr(0, tab);
  grid.SetCell(grid.Row(), grid.Col(), text_);
  if (tab != std::string_view::npos) {
    grid.SetCell(grid.Row(), grid.Col() + 1, text.substr(tab + 1));
  }
  table_.tableModified = true;
}

EditorMove CellEditor::MoveFor(EditorKey key, int row, int column) {
  switch (key) {
    case EditorKey::Escape:
      return {true, false, row, column};
    case EditorKey::Enter:
      if (column < kTimeColumn) return {true, true, row, column + 1};
      return {true, true, row < kLastRow ? row + 1 : row, column - 1};
    case EditorKey::Down:
      return {true, true, row < kLastRow ? row + 1 : row, column};
    case EditorKey::Up:
      return {true, true, row > kFirstRow ? row - 1 : row, column};
    case EditorKey::Right:
      return {false, true, row, column < kTimeColumn ? column + 1 : column};
    case EditorKey::Left:
      return {false, true, row, column >= kTimeColumn ? column - 1 : column};
  }
  return {false, false, row, column};
}

}  // namespace zentab::editor

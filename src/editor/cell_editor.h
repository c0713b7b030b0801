#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/curve_grid.h"

namespace zentab::editor {

/// The key codes that move the cell editor.
enum class EditorKey { Enter = 13, Escape = 27, Left = 37, Up = 38, Right = 39, Down = 40 };

/// What a key does to the open editor.
struct EditorMove {
  bool focusGridFirst;  // the grid gets the focus, so that the editor closes and the chart follows
  bool reopen;          // the editor opens again on the cell below
  int row;
  int column;
};

/// The character code by which the editor is opened on a cell's present text.
inline constexpr int kOpenWithText = 34;

/// The one-line editor over the grid's current cell. What is typed stands in the grid at once;
/// nothing is left to be confirmed or taken back.
class CellEditor {
 public:
  explicit CellEditor(WorkingTable& table) : table_(table) {}

  /// Opens the editor on the current cell. Codes 0 to 34 (blank, "!" and the double quote
  /// included) show the cell's text; any other code replaces the cell by that character.
  void GridEdit(int keyAscii);

  /// The user changed the editor's text, and the caret stands at byte `caret` now: the text goes
  /// into the current cell. What was pasted before the caret ends at its line end; the text behind
  /// the caret stays. At a tab the text is split: what follows goes into the next column, if the
  /// grid has one, and Text() keeps the part before it.
  void ChangeText(std::string_view typed, std::size_t caret);

  /// What a key without Shift, Ctrl or Alt does with the editor open on a cell.
  [[nodiscard]] static EditorMove MoveFor(EditorKey key, int row, int column);

  void Hide() { visible_ = false; }

  [[nodiscard]] bool IsVisible() const { return visible_; }
  [[nodiscard]] const std::string& Text() const { return text_; }
  /// The caret's place in characters when the editor was opened; a place behind the end means the
  /// end.
  [[nodiscard]] int Caret() const { return caret_; }

 private:
  WorkingTable& table_;
  std::string text_;
  int caret_ = 0;
  bool visible_ = false;
};

}  // namespace zentab::editor

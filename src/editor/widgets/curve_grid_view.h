#pragma once

#include <QTableView>
#include <optional>

#include "editor/cell_editor.h"
#include "editor/clipboard_text.h"
#include "editor/edit_step.h"
#include "editor/point_checks.h"

class QLineEdit;

namespace zentab::editor {

class CurveGridModel;

/// What a key of the clipboard asks for, as in a spreadsheet.
enum class CellCommand { Copy, Cut, Paste, Clear };

/// The grid `MSFlexGrid1` with its cell editor `Text11`, a one-line field over the current cell.
/// All keys of both are decided on here. In a cell that was only opened, as every click does, the
/// keys of the clipboard mean the cell; once its text is being edited they act on the text.
class CurveGridView : public QTableView {
  Q_OBJECT

 public:
  CurveGridView(WorkingTable& table, QWidget* parent);

  /// Opens the cell editor on the current cell; see CellEditor::GridEdit.
  void GridEdit(int keyAscii);

  /// Closes the cell editor where it is open; what was typed stands in the grid already.
  void CloseEditor();

  /// The grid has new texts or headings.
  void ShowAll();

  /// What cells are called and what is wrong with them, in words that outlive the view.
  void SetWords(const texts::PointTexts& words);
  /// Marks the cells that are at fault.
  void ShowFaults(std::vector<CellFault> faults);

  /// Whether the cell editor is open.
  [[nodiscard]] bool IsCellOpen() const;
  /// Whether it is open and its text or its caret has been touched: before that the cell is, as
  /// far as the user is concerned, selected and not edited.
  [[nodiscard]] bool IsEditingText() const;
  /// Puts a text into the open cell's, in place of the selected part, as if it were typed.
  void InsertIntoText(const QString& text);
  /// Puts a text in the place of the open cell's, as if it were typed; `step` is what the user
  /// calls that.
  void ReplaceText(const QString& text, EditStep step);

  /// The grid's current cell has moved without the user.
  void ShowCurrentCell();

  /// The selected cells; the current one where none is.
  [[nodiscard]] CellArea SelectedArea() const;

 Q_SIGNALS:
  /// The user is about to change the open cell for the first time since it was opened.
  void EditBegins(zentab::editor::EditStep step);
  /// The user changed a cell.
  void Edited();
  /// The open cell has taken back what was typed in it.
  void TypingUndone();
  /// The cell editor closed: what shows the grid's points has to follow.
  void EditingLeft();
  /// The current cell moved to another row of the grid (1..26).
  void RowChanged(int row);
  /// A key asks for a command on the selected cells, or to paste into the text of the open one.
  void CommandWanted(zentab::editor::CellCommand command);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void updateGeometries() override;
  /// Typing on the grid does nothing; it does not search either.
  void keyboardSearch(const QString&) override {}
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BeginEdit(EditStep step);
  void OnTextChanged(const QString& text);
  [[nodiscard]] bool KeepsKey(const QKeyEvent& event) const;
  [[nodiscard]] bool OnKey(QKeyEvent* event);
  [[nodiscard]] std::optional<CellCommand> CommandFor(const QKeyEvent& event) const;
  [[nodiscard]] bool OnEditorKey(const QKeyEvent& event);
  [[nodiscard]] bool OnSelectingKey(QKeyEvent* event);
  [[nodiscard]] bool OnDragOutOfEditor(const QMouseEvent& event);
  void OnHeaderPressed();
  void PlaceEditor();
  void FitRows();

  WorkingTable& table_;
  CellEditor cellEditor_;
  CurveGridModel* model_;
  QLineEdit* text11_;
  QPersistentModelIndex pressed_;
  bool isEdited_ = false;       // the open cell, since it was opened
  bool doubleClicked_ = false;  // with the last press of the mouse on the cell editor
};

}  // namespace zentab::editor

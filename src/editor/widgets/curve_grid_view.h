#pragma once

#include <QTableView>

#include "editor/cell_editor.h"
#include "editor/clipboard_text.h"

class QLineEdit;

namespace zentab::editor {

class CurveGridModel;

/// The grid `MSFlexGrid1` with its cell editor `Text11`, a one-line field over the current cell.
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

  /// Whether the cell editor is open, but neither its text nor its caret has been touched: as far
  /// as the user is concerned the cell is selected, not edited.
  [[nodiscard]] bool IsOnlyOpened() const;

  /// The selected cells; the current one where none is.
  [[nodiscard]] CellArea SelectedArea() const;

 Q_SIGNALS:
  /// The user changed a cell.
  void Edited();
  /// The cell editor closed: what shows the grid's points has to follow.
  void EditingLeft();
  /// The current cell moved to another row of the grid (1..26).
  void RowChanged(int row);

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
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void OnTextChanged(const QString& text);
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
};

}  // namespace zentab::editor

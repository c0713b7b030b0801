#pragma once

#include <QListView>

namespace zentab::app {

/// The list of the library's entries: several can be chosen at once, dragged within the list and
/// copied by their names. F2 opens a field for another name of the current one.
class EntryListView : public QListView {
  Q_OBJECT

 public:
  explicit EntryListView(QWidget* parent);

  /// Opens the field for another name.
  void Rename();
  /// How many entries are chosen.
  [[nodiscard]] int ChosenCount() const;

 Q_SIGNALS:
  void DuplicateWanted();
  /// One place up (-1) or down (1).
  void MoveWanted(int by);
  /// The chosen entries were dropped in front of a row, or behind the last one.
  void MovedTo(int row);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;

 private:
  [[nodiscard]] bool IsOwnDrag(const QDropEvent& event) const;
  [[nodiscard]] int DropRow() const;
  void ShowDropPlace(int row);
  void CopyNames() const;

  QPoint dragged_;    // where the mouse was last seen
  int dropRow_ = -1;  // in front of which what is dragged would go; -1: nowhere
};

}  // namespace zentab::app

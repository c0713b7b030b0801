#pragma once

#include <QHash>
#include <QObject>

class QContextMenuEvent;
class QMainWindow;
class QMenu;

namespace zentab::app {

/// The context menus of the main window, with the commands that apply to the entry list, the grid
/// and the chart. While the text of an open cell is being edited its field has its own.
class ContextMenus : public QObject {
  Q_OBJECT

 public:
  /// All controls and menus of the window have been made.
  explicit ContextMenus(QMainWindow& form);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Watch(const char* control, QMenu* menu);
  void FillListMenu();
  [[nodiscard]] bool Show(QWidget& control, const QContextMenuEvent& event);

  QMainWindow& form_;
  QMenu* listMenu_;
  QHash<const QObject*, QMenu*> menus_;  // by what is clicked on
};

}  // namespace zentab::app

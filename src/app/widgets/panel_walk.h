#pragma once

#include <QObject>
#include <array>

class QMenu;
class QWidget;

namespace zentab::app {

/// The keys that lead from one panel of the window to another: Alt+1 to the list, Alt+2 to the
/// grid, Alt+3 to the chart, F6 and Shift+F6 from each to the next one and back.
class PanelWalk : public QObject {
  Q_OBJECT

 public:
  /// A panel, and the control in it that matters most.
  struct Panel {
    QWidget* panel;
    QWidget* control;
  };

  /// Adds entries for the keys to a menu.
  PanelWalk(QMenu& view, const std::array<Panel, 3>& panels);

 private:
  void Walk(int step) const;

  std::array<Panel, 3> panels_;
};

}  // namespace zentab::app

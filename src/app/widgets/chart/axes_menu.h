#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "editor/chart_axes.h"

class QAction;
class QActionGroup;
class QMenu;

namespace zentab::app {

class AxesController;

/// The entries of the View menu about the chart's axes: `m_log` for both of them, and the menu
/// `m_axes` for the rest.
class AxesMenu : public QObject {
  Q_OBJECT

 public:
  /// Adds them at the end of the menu.
  AxesMenu(QMenu& view, AxesController& axes);

 private:
  using Read = std::function<bool(const editor::ChartAxes&)>;
  using Write = std::function<void(editor::ChartAxes&, bool)>;

  struct Entry {
    QAction* action;
    Read isOn;
  };
  void AddSwitches(QMenu& menu);
  void AddUnits(QMenu& menu);
  QAction* AddSwitch(QMenu& menu, const char* name, const QString& caption, Read isOn, Write set);
  void Refresh();

  AxesController& axes_;
  QActionGroup* units_;
  std::vector<Entry> entries_;
};

}  // namespace zentab::app

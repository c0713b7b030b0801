#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace zentab::app {

class ReportController;

/// The commands that bring the chart and reports out of the program, in a menu before one of its
/// entries.
class ReportMenu : public QObject {
  Q_OBJECT

 public:
  ReportMenu(QMenu& menu, QAction& before, ReportController& controller);
};

}  // namespace zentab::app

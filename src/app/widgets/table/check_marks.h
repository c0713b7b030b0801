#pragma once

#include <QObject>
#include <vector>

#include "app/session.h"
#include "editor/point_checks.h"

class QStatusBar;
class QToolButton;

namespace zentab::editor {
class CurveGridView;
}

namespace zentab::app {

/// The quiet checks of the points: whenever the grid shows another text its cells at fault are
/// marked, and the status bar counts them with a button that leads from one to the next. Nothing is
/// said of a table without faults, and no fault keeps anybody from anything.
class CheckMarks : public QObject {
  Q_OBJECT

 public:
  CheckMarks(const Session& session, editor::CurveGridView& grid, QStatusBar& bar);

 public Q_SLOTS:
  /// Makes the next marked cell behind the current one, or the first one, the current cell, and
  /// says in the status bar what is wrong with it.
  void GoToNext();

 private:
  void Refresh();

  const Session& session_;
  editor::CurveGridView& grid_;
  QStatusBar& bar_;
  QToolButton* button_;
  std::vector<editor::CellFault> faults_;
};

}  // namespace zentab::app

#pragma once

#include <QObject>

#include "app/session.h"
#include "editor/edit_step.h"
#include "editor/widgets/curve_grid_view.h"

class QAction;
class QMenu;
class QMenuBar;

namespace zentab::app {

class CheckMarks;
class PointToolsController;

/// The menu `m_edit`: the commands of the clipboard, the tools on the points, and the way to the
/// next cell that is marked. It serves the grid as its context menu, too.
class PointToolsMenu : public QObject {
  Q_OBJECT

 public:
  /// Adds the menu at the end of the bar.
  PointToolsMenu(const Session& session, QMenuBar& bar, editor::CurveGridView& grid,
                 PointToolsController& tools, CheckMarks& checks);

  [[nodiscard]] QMenu& Menu() const { return *menu_; }

 private:
  void AddClipboard();
  void AddTools(CheckMarks& checks);
  QAction* AddTool(QMenu& menu, const char* name, const QString& caption, editor::EditStep tool);
  void NameConversions();
  void RunClipboard(editor::CellCommand command);

  const Session& session_;
  editor::CurveGridView& grid_;
  PointToolsController& tools_;
  QMenu* menu_;
  QAction* loads_ = nullptr;  // their conversion, whose caption follows the value mode
  QAction* times_ = nullptr;
};

}  // namespace zentab::app

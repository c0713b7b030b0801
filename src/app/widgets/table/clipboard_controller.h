#pragma once

#include <QObject>

#include "app/session.h"
#include "editor/edit_step.h"
#include "editor/widgets/curve_grid_view.h"

namespace zentab::app {

class TablePanel;

/// Carries out the clipboard commands under the grid, for their buttons (Import Clipboard data
/// `Command7`, Export `Command8`, Clear `Command9`) and for the keys that mean them in a
/// spreadsheet. In a cell that was only opened, the keys act on that cell as typing would; several
/// rows or columns are pasted as by the button. Rows pasted into a text that is being edited go on
/// in the cells below it.
class ClipboardController : public QObject {
  Q_OBJECT

 public:
  ClipboardController(Session& session, TablePanel& panel);

 public Q_SLOTS:
  /// The selected cells go to the clipboard.
  void Export() const;
  /// The clipboard's text comes into the selected cells.
  void Import();
  /// The selected cells are emptied.
  void Clear();

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The grid holds other points.
  void TableChanged();

 private:
  void Run(editor::CellCommand command);
  void RunOnOpenCell(editor::CellCommand command);
  void ClearArea(editor::EditStep step);
  void PasteIntoText(const std::string& text);

  Session& session_;
  TablePanel& panel_;
};

}  // namespace zentab::app

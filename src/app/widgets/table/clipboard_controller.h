#pragma once

#include <QObject>

#include "app/session.h"

class QKeyEvent;
class QLineEdit;

namespace zentab::app {

class TablePanel;

/// Carries out the clipboard commands under the grid, for their buttons (Import Clipboard data
/// `Command7`, Export `Command8`, Clear `Command9`) and for the keys that mean them in a
/// spreadsheet. In a cell that was only opened, as every click does, the keys still mean the cell,
/// which stays open; once its text is being edited they act on the text, except that several rows
/// go into the grid.
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
  /// The grid holds other points.
  void TableChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Command { None, Export, Import, Cut, Clear, PasteRow };

  [[nodiscard]] Command CommandFor(const QKeyEvent& event, bool inEditor) const;
  [[nodiscard]] bool ReopensCell(Command command) const;
  void Run(Command command);
  void PasteRow();

  Session& session_;
  TablePanel& panel_;
  QLineEdit* text11_;
};

}  // namespace zentab::app

#pragma once

#include <QObject>
#include <map>
#include <optional>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "editor/chart_axes.h"
#include "editor/clipboard_text.h"
#include "editor/edit_step.h"
#include "editor/tool_outcome.h"

namespace zentab::app {

class TablePanel;

/// Carries out the tools on the points for the menus. With one cell selected a tool for numbers or
/// for the order of rows works on all rows, else on those selected. A cell that was only opened
/// stays open.
class PointToolsController : public QObject {
  Q_OBJECT

 public:
  PointToolsController(Session& session, TablePanel& panel, UserDialogs& dialogs);

  /// Carries out one of the tools; any other step is none. `title` heads the question for a number,
  /// where the tool needs one.
  void Run(editor::EditStep tool, const QString& title);

 public Q_SLOTS:
  /// Which of the chart's axes are to be logarithmic, both at first.
  void SetLogarithmic(zentab::editor::AxisKinds wanted) { logarithmic_ = wanted; }

 Q_SIGNALS:
  /// Table or value modes are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// What was said of the command before is over.
  void CommandBegun();
  /// The grid holds other points.
  void TableChanged();
  /// The session's value modes are others.
  void ModesChanged();
  /// Nothing was changed; `text` says why, in one line.
  void Failed(const QString& text);

 private:
  /// What a tool changes.
  struct Work {
    editor::WorkingTable table;
    editor::ValueModes modes;
  };

  [[nodiscard]] std::optional<NumberQuestion> QuestionOf(editor::EditStep tool,
                                                         const editor::CellArea& area) const;
  [[nodiscard]] editor::ToolOutcome Apply(editor::EditStep tool, const editor::CellArea& selected,
                                          double number, Work& work) const;
  [[nodiscard]] editor::ToolOutcome ApplyToRows(editor::EditStep tool,
                                                const editor::CellArea& selected, Work& work) const;
  [[nodiscard]] const std::string& TextOf(editor::ToolOutcome outcome) const;
  void Select(const editor::CellArea& area);

  Session& session_;
  TablePanel& panel_;
  UserDialogs& dialogs_;
  std::map<editor::EditStep, double> lastNumbers_;  // that the user gave
  editor::AxisKinds logarithmic_;
};

}  // namespace zentab::app

#pragma once

#include <QObject>

#include "app/reference_graph_commands.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"

namespace zentab::app {

/// Carries out Set GRH and Import GRH: asks where the user has to agree, runs the command, and
/// tells what has to be shown anew. While a graph is handed over the window is busy and out of
/// reach; while a file is waited for neither of them begins.
class ReferenceGraphController : public QObject {
  Q_OBJECT

 public:
  ReferenceGraphController(Session& session, ResponsiveFiles& files, UserDialogs& dialogs,
                           EventLog& log, testset::InstrumentSession& instruments, QWidget& window);

 public Q_SLOTS:
  /// `tableName` is the selected entry's.
  void SetGraph(const std::string& tableName);
  void ImportGraph();

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// A command is about to use the grid and its value modes: open editors close.
  void GridNeeded();
  /// The grid holds another table.
  void TableImported();
  /// What was not done, or not wholly; `text` says so in one line.
  void Failed(const QString& text);

 private:
  void ReportError(const std::string& text) const;
  void ReportError(const testset::GraphError& error, const QString& file) const;

  Session& session_;
  ResponsiveFiles& files_;
  ReferenceGraphCommands commands_;
  UserDialogs& dialogs_;
  QWidget& window_;
};

}  // namespace zentab::app

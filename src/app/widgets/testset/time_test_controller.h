#pragma once

#include <QObject>

#include "app/event_log.h"
#include "app/time_test_commands.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"

namespace zentab::app {

class ChartPanel;
class ResponsiveFiles;

/// Carries out the Import time test command and says when it can be given.
class TimeTestController : public QObject {
  Q_OBJECT

 public:
  TimeTestController(Session& session, ResponsiveFiles& files, UserDialogs& dialogs, EventLog& log,
                     ChartPanel& panel);

 public Q_SLOTS:
  /// The instrument was chosen: the command is offered when its time test has an entry.
  void UpdateTimeTestAvailability();
  /// The instrument could not be opened: the command is not offered until one is chosen.
  void Withdraw();
  /// The user comes back to the window, perhaps from a time test: looks again, unless withdrawn.
  void LookAgain();
  void ImportTimeTest();
  /// What the command would do is going to be shown.
  void BeginPreview() { Q_EMIT GridNeeded(); }

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The command is about to use the grid: an open cell editor closes.
  void GridNeeded();
  /// The grid holds another table.
  void TableImported();
  /// What could not be done as it should; `text` says so in one line.
  void Failed(const QString& text);

 private:
  void Report(const ImportTimeTestOutcome& outcome);

  Session& session_;
  ResponsiveFiles& files_;
  TimeTestCommands commands_;
  UserDialogs& dialogs_;
  EventLog& log_;
  ChartPanel& panel_;
  bool withdrawn_ = true;
};

}  // namespace zentab::app

#pragma once

#include <QObject>

#include "app/session_history.h"

class QAction;
class QMenu;

namespace zentab::app {

class InstrumentController;
class LibraryController;
class ResponsiveFiles;
class TablePanel;
class ValueModeBinding;

/// Undo and Redo: takes back what the history has, and shows what has come of it.
class HistoryController : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Session& session;
    SessionHistory& history;
    ResponsiveFiles& files;
    TablePanel& table;
    ValueModeBinding& modes;
    LibraryController& library;
    InstrumentController& instruments;
  };
  explicit HistoryController(Parts parts);

  /// Puts both commands at the top of a menu; while it is open their captions name the step.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  void Undo();
  void Redo();
  /// The session's texts are other ones.
  void RefreshTexts();
  /// The session has got another table without a command: shows it.
  void ShowTable();

 Q_SIGNALS:
  /// What was said of the command before is over.
  void CommandBegun();
  /// Grid, value modes and instrument show the session's.
  void TableShown();
  /// A step could not be taken; `text` says so in one line.
  void Failed(const QString& text);

 private:
  void Go(HistoryOutcome (SessionHistory::*step)());
  void NameSteps();

  Parts parts_;
  QAction* undo_ = nullptr;  // once there is a menu
  QAction* redo_ = nullptr;
};

}  // namespace zentab::app

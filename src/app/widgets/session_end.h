#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QSessionManager>
#include <functional>
#include <memory>
#include <string>

#include "app/event_log.h"
#include "app/session.h"
#include "platform/end_signals.h"
#include "platform/settings_store.h"

class QTimer;
class QWidget;

namespace zentab::editor {
class CurveGridView;
}
namespace zentab::testset {
class InstrumentSession;
}

namespace zentab::app {

class RecoveryKeeper;
class ResponsiveFiles;
class UserDialogs;

/// What the end of the main window has to do with; all of it outlives the window's end.
struct SessionEndParts {
  QWidget& window;
  editor::CurveGridView& grid;
  Session& session;
  std::string title;  // the program's title, under which the settings are kept
  platform::SettingsStore& store;
  UserDialogs& dialogs;
  ResponsiveFiles& files;
  RecoveryKeeper& recovery;
  EventLog& log;
  testset::InstrumentSession& instruments;
};

/// How the editor ends: by its window, by the end of the user's session, by a signal. The settings
/// are kept, the open module is closed and the log gets its last lines in each of these ways.
class SessionEnd : public QObject {
  Q_OBJECT

 public:
  explicit SessionEnd(SessionEndParts parts);
  ~SessionEnd() override;

  /// The window is about to close: asks when there are edits, and unless the user wants to stay
  /// does all that has to be done. False when the window has to stay open, also because a command
  /// is under way.
  [[nodiscard]] bool MayClose();

  /// The user's session is about to end. Keeps the settings; whether it may go on, which is asked
  /// when there are edits and `mayAsk` allows it. Nothing has ended yet, and perhaps nothing will.
  [[nodiscard]] bool MaySessionEnd(const std::function<bool()>& mayAsk);

  /// Ends the program without a question as soon as no command is under way any more. A dialog that
  /// is open is cancelled; a file that is waited for is given up after five seconds.
  void EndUnasked();

  /// From now on listens to the session manager and to the signals that ask a program to end. The
  /// application's event loop is about to run.
  void Listen();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void StoreSettings();
  [[nodiscard]] bool MayDiscardEdits();
  [[nodiscard]] bool IsUnderWay() const;
  void Unload();
  void CommitData(QSessionManager& manager);

  SessionEndParts parts_;
  std::unique_ptr<platform::EndSignals> signals_;
  QTimer* retry_;
  QElapsedTimer waited_;
  editor::PackedTable discarded_;  // that the user gave up at the end of his session
  bool unasked_ = false;
  bool ended_ = false;
};

}  // namespace zentab::app

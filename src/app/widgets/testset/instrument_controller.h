#pragma once

#include <QObject>

#include "app/event_log.h"
#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"
#include "testset/instrument_session.h"

class QRadioButton;

namespace zentab::app {

class TablePanel;

/// Carries out the choice of an instrument: closes the open module, opens the new one's, and tells
/// what has to be shown anew. The window is busy and out of reach meanwhile.
class InstrumentController : public QObject {
  Q_OBJECT

 public:
  InstrumentController(Session& session, EventLog& log, UserDialogs& dialogs, TablePanel& panel);

  /// The session's instrument was set without the user's click: chooses it, unless it is already.
  void FollowSession();
  [[nodiscard]] testset::InstrumentSession& Instruments() { return instruments_; }

 public Q_SLOTS:
  void Choose(tables::Instrument kind);

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// Another instrument is in use; its module is not open yet.
  void InstrumentChosen();
  /// The instrument's time test may be looked at.
  void ResultsWanted();
  /// The instrument's module could not be opened.
  void OpenFailed();
  /// The choice is complete.
  void Chosen();
  /// What could not be done, in one line.
  void Failed(const QString& text);

 private:
  void ChooseNone();
  void Open();
  void LetEventsRun() const;
  void TellOpenFailed(const std::string& reason);

  Session& session_;
  UserDialogs& dialogs_;
  TablePanel& panel_;
  testset::InstrumentSession instruments_;
  bool choosing_ = false;
};

}  // namespace zentab::app

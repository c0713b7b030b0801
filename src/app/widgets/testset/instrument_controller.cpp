#include "app/widgets/testset/instrument_controller.h"

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>

#include "app/session_texts.h"
#include "app/widgets/table/table_panel.h"
#include "app/widgets/testset/busy_window.h"
#include "platform/paths.h"
#include "texts/number_text.h"

namespace zentab::app {

InstrumentController::InstrumentController(Session& session, EventLog& log, UserDialogs& dialogs,
                                           TablePanel& panel)
    : QObject(&panel),
      session_(session),
      dialogs_(dialogs),
      panel_(panel),
      instruments_(
          platform::ToPath(session.installFolder),
          {[&log](std::string_view line) { log.WriteLogLine(line); }, [this] { LetEventsRun(); }}) {
  // A click on the choice that is already made closes its module and opens it again.
  const auto choose = [this](QRadioButton* option, tables::Instrument kind) {
    connect(option, &QRadioButton::clicked, this, [this, kind] {
      Q_EMIT AboutToChange(editor::EditStep::Instrument);
      Choose(kind);
    });
  };
  choose(panel.option1, tables::Instrument::Current);
  choose(panel.option2, tables::Instrument::Voltage);
  choose(panel.option3, tables::Instrument::Third);
}

void InstrumentController::FollowSession() {
  if (session_.instrument == instruments_.Kind()) return;
  if (session_.instrument == tables::Instrument::None) {
    ChooseNone();
  } else {
    Choose(session_.instrument);
  }
}

// As before the first choice, which no click leads back to.
void InstrumentController::ChooseNone() {
  const BusyWindow busy(*panel_.window());
  instruments_.Choose(tables::Instrument::None);
  for (QRadioButton* const option : {panel_.option1, panel_.option2, panel_.option3}) {
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(true);
  }
  Q_EMIT InstrumentChosen();
  Q_EMIT ResultsWanted();
  Q_EMIT Chosen();
}

void InstrumentController::Choose(tables::Instrument kind) {
  // A disabled window is busy with a module already.
  if (!panel_.window()->isEnabled() || kind == tables::Instrument::None) return;
  const BusyWindow busy(*panel_.window());
  choosing_ = true;
  instruments_.Choose(kind);
  session_.instrument = kind;
  QRadioButton* const options[] = {panel_.option1, panel_.option2, panel_.option3};
  options[static_cast<int>(kind) - 1]->setChecked(true);
  Q_EMIT InstrumentChosen();
  if (instruments_.HasModule()) {
    Open();
  } else {
    Q_EMIT ResultsWanted();
  }
  choosing_ = false;
  Q_EMIT Chosen();
}

void InstrumentController::LetEventsRun() const {
  // What is clicked during a choice comes to nothing. While a graph is on its way to a module it
  // waits: another instrument must not be chosen before.
  QCoreApplication::processEvents(choosing_ ? QEventLoop::AllEvents
                                            : QEventLoop::ExcludeUserInputEvents);
}

void InstrumentController::Open() {
  const testset::OpenOutcome outcome = instruments_.Open();
  if (outcome.open) {
    Q_EMIT ResultsWanted();
  } else {
    TellOpenFailed(outcome.failure);
    Q_EMIT OpenFailed();
  }
  LetEventsRun();
  panel_.text2->setText(QString::fromStdString(texts::NumberText(
      texts::ShownValue(instruments_.UsablePickup()), session_.localeDecimalSeparator)));
}

void InstrumentController::TellOpenFailed(const std::string& reason) {
  // The box waits for the user: a busy pointer over it would be wrong.
  QApplication::changeOverrideCursor(Qt::ArrowCursor);
  dialogs_.ReportError(OpenFailedMessage(session_));
  QApplication::changeOverrideCursor(Qt::WaitCursor);
  if (!reason.empty()) Q_EMIT Failed(QString::fromStdString(reason));
}

}  // namespace zentab::app

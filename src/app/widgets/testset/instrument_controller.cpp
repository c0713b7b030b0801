#include "app/widgets/testset/instrument_controller.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>

#include "app/session_texts.h"
#include "app/widgets/table/table_panel.h"
#include "platform/paths.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

// While it lives the window shows the busy pointer and takes no input.
class BusyWindow {
 public:
  BusyWindow(QWidget& window, bool& busy)
      : window_(window), busy_(busy), focus_(QApplication::focusWidget()) {
    busy_ = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    window_.setEnabled(false);
  }
  ~BusyWindow() {
    window_.setEnabled(true);
    // A disabled control loses the focus.
    if (focus_ && focus_->window() == &window_) focus_->setFocus();
    QApplication::restoreOverrideCursor();
    busy_ = false;
  }
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;

 private:
  QWidget& window_;
  bool& busy_;
  QPointer<QWidget> focus_;
};

}  // namespace

InstrumentController::InstrumentController(Session& session, const EventLog& log,
                                           UserDialogs& dialogs, TablePanel& panel)
    : QObject(&panel),
      session_(session),
      dialogs_(dialogs),
      panel_(panel),
      instruments_(
          platform::ToPath(session.installFolder),
          {[&log](std::string_view line) { log.WriteLogLine(line); }, [this] { LetEventsRun(); }}) {
  // A click on the choice that is already made closes its module and opens it again.
  const auto choose = [this](QRadioButton* option, tables::Instrument kind) {
    connect(option, &QRadioButton::clicked, this, [this, kind] { Choose(kind); });
  };
  choose(panel.option1, tables::Instrument::Current);
  choose(panel.option2, tables::Instrument::Voltage);
  choose(panel.option3, tables::Instrument::Third);
}

void InstrumentController::FollowSession() {
  if (session_.instrument != instruments_.Kind()) Choose(session_.instrument);
}

void InstrumentController::Choose(tables::Instrument kind) {
  if (busy_ || kind == tables::Instrument::None) return;
  const BusyWindow busy(*panel_.window(), busy_);
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
  Q_EMIT Chosen();
}

void InstrumentController::LetEventsRun() const {
  // Outside a choice the window takes input: another instrument, clicked while a graph is on its
  // way to a module, has to wait, or the graph would go to the wrong one.
  QCoreApplication::processEvents(busy_ ? QEventLoop::AllEvents
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

#include "app/widgets/session_end.h"

#include <QApplication>
#include <QDialog>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>

#include "app/session_history.h"
#include "app/session_texts.h"
#include "app/settings.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/table/recovery_keeper.h"
#include "app/widgets/testset/busy_window.h"
#include "app/widgets/user_dialogs.h"
#include "app/widgets/window_placement.h"
#include "editor/widgets/curve_grid_view.h"
#include "platform/paths.h"
#include "testset/instrument_session.h"

namespace zentab::app {
namespace {

constexpr int kTryAgainAfter = 50;   // milliseconds
constexpr int kLongestWork = 5'000;  // that is waited for

// Every question can be answered by Cancel, and a long import be stopped.
void CancelDialogs() {
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  QWidget* const dialog = QApplication::activeModalWidget();
  if (dialog == nullptr || dialog->close()) return;
  if (auto* const stubborn = qobject_cast<QDialog*>(dialog)) stubborn->reject();
}

}  // namespace

SessionEnd::SessionEnd(SessionEndParts parts)
    : QObject(&parts.window), parts_(std::move(parts)), retry_(new QTimer(this)) {
  retry_->setSingleShot(true);
  retry_->setInterval(kTryAgainAfter);
  connect(retry_, &QTimer::timeout, this, &SessionEnd::EndUnasked);
}

SessionEnd::~SessionEnd() = default;

bool SessionEnd::MayClose() {
  // A module is just at work, or a table file written.
  if (!parts_.window.isEnabled() || parts_.files.IsAtWork()) return false;
  // One that is gone leaves the working folder as it is.
  [[maybe_unused]] const std::error_code dropped =
      parts_.files.Ask([folder = platform::ToPath(parts_.session.installFolder)] {
        return platform::ChangeCurrentFolder(folder);
      });
  parts_.grid.CloseEditor();
  StoreSettings();
  if (!unasked_ && !MayDiscardEdits()) return false;
  // What nobody was asked about is not discarded.
  const bool isDiscarded = !unasked_ || discarded_ == StateOf(parts_.session).table;
  parts_.recovery.End(isDiscarded);
  Unload();
  ended_ = true;
  return true;
}

bool SessionEnd::MaySessionEnd(const std::function<bool()>& mayAsk) {
  // Whatever ends the session now may not wait for anything more.
  parts_.recovery.KeepNow();
  StoreSettings();
  if (!parts_.session.table.tableModified || !mayAsk()) return true;
  const bool mayDiscard = MayDiscardEdits();
  if (mayDiscard) discarded_ = StateOf(parts_.session).table;
  return mayDiscard;
}

void SessionEnd::EndUnasked() {
  if (ended_) return;
  if (!std::exchange(unasked_, true)) {
    waited_.start();
    parts_.recovery.StopAsking();
    parts_.recovery.KeepNow();
  }
  // Before anything else: a file that is waited for below may never answer.
  retry_->start();
  CancelDialogs();
  if (waited_.elapsed() > kLongestWork) parts_.files.GiveUp();
  if (!IsUnderWay() && parts_.window.close()) QCoreApplication::exit();
}

void SessionEnd::Listen() {
  connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::CommitData,
          Qt::DirectConnection);
  connect(qApp, &QGuiApplication::saveStateRequest, this, &SessionEnd::StoreSettings,
          Qt::DirectConnection);
  qApp->installEventFilter(this);
  signals_ = std::make_unique<platform::EndSignals>();
  if (signals_->Descriptor() < 0) return;
  auto* const notifier = new QSocketNotifier(signals_->Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    // Another signal asks for the same.
    notifier->setEnabled(false);
    EndUnasked();
  });
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
  // The session has ended: who was to be asked has been asked before.
  const bool mustEnd = watched == qApp && event->type() == QEvent::Quit && !ended_;
  if (mustEnd) EndUnasked();
  return mustEnd;
}

void SessionEnd::StoreSettings() {
  const Session& session = parts_.session;
  const Settings settings = {session.tablePath, session.modes.pickup,
                             session.modes.absoluteValues ? "1" : "0", PlacementOf(parts_.window)};
  // The program ends whether or not its window is remembered.
  [[maybe_unused]] const std::error_code dropped =
      parts_.files.Ask([&store = parts_.store, title = parts_.title, settings] {
        return SaveSettings(store, title, settings);
      });
}

bool SessionEnd::MayDiscardEdits() {
  return !parts_.session.table.tableModified ||
         parts_.dialogs.Confirm(MessageFor(parts_.session, MessageBox::DiscardEditsOnExit, {}));
}

bool SessionEnd::IsUnderWay() const {
  return !parts_.window.isEnabled() || parts_.files.IsAtWork() ||
         QApplication::activeModalWidget() != nullptr || QThread::currentThread()->loopLevel() > 1;
}

void SessionEnd::Unload() {
  const BusyWindow busy(parts_.window);
  parts_.log.WriteLogLine(" Unloading... ");
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  parts_.instruments.CloseRequest();
  parts_.session.table.grid.ClearPoints();
  parts_.log.WriteLogLine(" %E Exit");
}

void SessionEnd::CommitData(QSessionManager& manager) {
  if (MaySessionEnd([&manager] { return manager.allowsInteraction(); })) {
    manager.release();
  } else {
    manager.cancel();
  }
}

}  // namespace zentab::app

#include "app/widgets/testset/time_test_controller.h"

#include <QLineEdit>
#include <QPushButton>

#include "app/session_texts.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/status_line.h"
#include "app/widgets/testset/import_progress.h"
#include "platform/paths.h"

namespace zentab::app {

TimeTestController::TimeTestController(Session& session, ResponsiveFiles& files,
                                       UserDialogs& dialogs, EventLog& log, ChartPanel& panel)
    : QObject(&panel),
      session_(session),
      files_(files),
      commands_(session, files),
      dialogs_(dialogs),
      log_(log),
      panel_(panel) {
  connect(panel.command10, &QPushButton::clicked, this, &TimeTestController::ImportTimeTest);
}

void TimeTestController::UpdateTimeTestAvailability() {
  withdrawn_ = false;
  panel_.command10->setEnabled(commands_.HasTimeTest());
}

void TimeTestController::Withdraw() {
  withdrawn_ = true;
  panel_.command10->setEnabled(false);
}

void TimeTestController::LookAgain() {
  if (withdrawn_) return;
  const auto look = [folder = platform::ToPath(session_.installFolder),
                     instrument = session_.instrument](platform::FileLayer& files) {
    return HasTimeTest(files, folder, instrument);
  };
  files_.Quietly(look, [this, instrument = session_.instrument](bool found) {
    if (!withdrawn_ && instrument == session_.instrument) panel_.command10->setEnabled(found);
  });
}

void TimeTestController::ImportTimeTest() {
  if (files_.IsAtWork()) return;
  log_.WriteLogLine(" %E Import time test ");
  Q_EMIT GridNeeded();
  if (session_.table.tableModified &&
      !dialogs_.Confirm(MessageFor(session_, MessageBox::DiscardEdits, {}))) {
    return;
  }
  const ImportFields fields = {panel_.text4->text().toStdString(),
                               panel_.text5->text().toStdString(),
                               panel_.text6->text().toStdString()};
  const ResponsiveFiles::Work work(files_);
  Q_EMIT AboutToChange(editor::EditStep::TimeTest);
  ImportProgress progress(&panel_, session_.texts.program);
  Report(commands_.ImportTimeTest(
      fields, [&progress](double fraction) { return progress.Report(fraction); }));
}

void TimeTestController::Report(const ImportTimeTestOutcome& outcome) {
  const timetest::ImportResult& result = outcome.result;
  const texts::ProgramTexts& texts = session_.texts.program;
  QStringList told;
  switch (result.outcome) {
    case timetest::ImportOutcome::Imported:
      Q_EMIT TableImported();
      if (result.selectedByRank) told << QString::fromStdString(texts.selectedByRank);
      break;
    case timetest::ImportOutcome::NoEntries:
      UpdateTimeTestAvailability();
      told << QString::fromStdString(texts.noTimeTest);
      break;
    case timetest::ImportOutcome::Unreadable:
      told << FailureText(texts, texts.timeTestUnreadable, result.readError);
      break;
    case timetest::ImportOutcome::EquationError:
      dialogs_.ReportError({"ERROR", result.error});
      break;
    case timetest::ImportOutcome::Stopped:
      break;
  }
  if (outcome.traceError) told << FailureText(texts, texts.traceFailed, outcome.traceError);
  if (!told.isEmpty()) Q_EMIT Failed(told.join(QStringLiteral("; ")));
}

}  // namespace zentab::app

#include "app/widgets/testset/reference_graph_controller.h"

#include <QDir>

#include "app/session_texts.h"
#include "app/widgets/status_line.h"
#include "app/widgets/testset/busy_window.h"
#include "platform/paths.h"

namespace zentab::app {

ReferenceGraphController::ReferenceGraphController(Session& session, ResponsiveFiles& files,
                                                   UserDialogs& dialogs, EventLog& log,
                                                   testset::InstrumentSession& instruments,
                                                   QWidget& window)
    : QObject(&window),
      session_(session),
      files_(files),
      commands_(session, files, log, instruments),
      dialogs_(dialogs),
      window_(window) {}

void ReferenceGraphController::SetGraph(const std::string& tableName) {
  if (files_.IsAtWork()) return;
  Q_EMIT GridNeeded();
  const SetGraphOutcome outcome = commands_.WriteGraph(tableName);
  const texts::GraphTexts& texts = session_.texts.graph;
  if (!outcome.hasPoints) {
    Q_EMIT Failed(QString::fromStdString(texts.noPoints));
  } else if (outcome.error) {
    Q_EMIT Failed(FailureText(session_.texts.program, texts.notWritten, outcome.error));
  } else {
    const BusyWindow busy(window_);
    commands_.HandOverGraph();
  }
}

void ReferenceGraphController::ImportGraph() {
  if (files_.IsAtWork()) return;
  Q_EMIT GridNeeded();
  if (session_.table.tableModified &&
      !dialogs_.Confirm(MessageFor(session_, MessageBox::DiscardEdits, {}))) {
    return;
  }
  if (!commands_.CanImport()) {
    ReportError(session_.texts.graph.needsPickup);
    return;
  }
  const QString file = dialogs_.ChooseGraphFile();
  if (file.isEmpty()) return;
  Q_EMIT AboutToChange(editor::EditStep::GraphImport);
  const ImportGraphOutcome outcome = commands_.ImportGraph(platform::ToPath(file.toStdString()));
  if (outcome.error) {
    ReportError(*outcome.error, file);
    return;
  }
  Q_EMIT TableImported();
  if (outcome.skipped == 0) return;
  const std::string count = std::to_string(outcome.skipped);
  const texts::GraphTexts& texts = session_.texts.graph;
  const std::string& text = texts::ForCount(outcome.skipped, texts.oneSkipped, texts.skipped);
  Q_EMIT Failed(QString::fromStdString(Expanded(session_, text, {count})));
}

void ReferenceGraphController::ReportError(const std::string& text) const {
  dialogs_.ReportError({session_.texts.graph.heading, text});
}

void ReferenceGraphController::ReportError(const testset::GraphError& error,
                                           const QString& file) const {
  const texts::GraphTexts& texts = session_.texts.graph;
  const bool isUnreadable = error.fault == testset::GraphFault::Unreadable;
  const std::string name = QDir::toNativeSeparators(file).toStdString();
  const std::string line = std::to_string(error.line);
  ReportError(Expanded(session_, isUnreadable ? texts.unreadable : texts.malformed,
                       {name, line, FaultText(error.fault, texts)}));
}

}  // namespace zentab::app

#include "app/widgets/interchange/curve_import_controller.h"

#include <QAction>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/curve/beside_chart.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/interchange/curve_import_dialog.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/status_line.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/preview_curve.h"
#include "interchange/entry_addition.h"
#include "platform/file_text.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {}  // namespace

struct CurveImportController::Result {
  std::error_code error;
  std::shared_ptr<const CurveSource> source;
  std::shared_ptr<const CurveReading> reading;
};

CurveImportController::CurveImportController(const InterchangeParts& parts)
    : QObject(&parts.window), parts_(parts), preview_(new editor::PreviewCurve(parts.chart)) {}

void CurveImportController::Import() {
  if (parts_.files.IsAtWork()) return;
  const texts::CurveImportTexts& texts = parts_.session.texts.curveImport;
  ImportFrom(parts_.dialogs.ChooseFileToRead(ToQt(texts.files) +
                                             QLatin1String(" (*.csv *.tsv *.txt *.json);;") +
                                             ToQt(texts.allFiles) + QLatin1String(" (*)")));
}

void CurveImportController::ImportFrom(const QString& file) {
  if (file.isEmpty() || parts_.files.IsAtWork()) return;
  Open(QFileInfo(file).fileName(), {platform::ToPath(file.toStdString()), nullptr});
}

void CurveImportController::Paste() {
  if (parts_.files.IsAtWork()) return;
  const texts::CurveImportTexts& texts = parts_.session.texts.curveImport;
  const std::string text = QGuiApplication::clipboard()->text().toStdString();
  if (text.empty()) {
    Q_EMIT CommandBegun();
    Q_EMIT Told(ToQt(texts.noClipboard));
    return;
  }
  CurveSource source = {texts.clipboard, text};
  Open(ToQt(texts.clipboard), {{}, std::make_shared<const CurveSource>(std::move(source))});
}

void CurveImportController::Open(const QString& name, Job begun) {
  Q_EMIT CommandBegun();
  auto* const dialog = new CurveImportDialog(parts_.session, *preview_, &parts_.window);
  const auto* const action = parts_.window.findChild<QAction*>(QStringLiteral("m_impcurves"));
  dialog->setWindowTitle(PlainTitle(action->text()) + QStringLiteral(" – ") + name);
  const auto job = std::make_shared<Job>(std::move(begun));
  connect(dialog, &CurveImportDialog::ChoicesChanged, this,
          [this, dialog, job] { Read(*dialog, job); });
  connect(dialog, &CurveImportDialog::GridWanted, this, [this, dialog] { TakeIntoGrid(*dialog); });
  connect(dialog, &CurveImportDialog::LibraryWanted, this,
          [this, dialog, job] { AddToLibrary(*dialog, *job); });
  Read(*dialog, job);
  OpenBeside(*dialog, *parts_.chart.parentWidget());
}

// A long text takes its time, and so does a slow share: nobody waits for them.
void CurveImportController::Read(CurveImportDialog& dialog, const std::shared_ptr<Job>& job) {
  job->isOutdated = job->isReading;
  if (job->isReading) return;
  job->isReading = true;
  dialog.ShowReading();
  const auto read = [file = job->file, source = job->source, choices = dialog.Choices(),
                     surplus = dialog.Surplus()](platform::FileLayer& files) {
    Result result;
    result.source = source;
    if (!source) {
      CurveSource fresh = {platform::ToText(file.filename()), {}};
      result.error = platform::ReadWholeFile(files, file, interchange::kLargestText, fresh.bytes);
      if (result.error) return result;
      result.source = std::make_shared<const CurveSource>(std::move(fresh));
    }
    result.reading =
        std::make_shared<const CurveReading>(ReadCurveText(*result.source, choices, surplus));
    return result;
  };
  const QPointer<CurveImportDialog> open = &dialog;
  parts_.files.Quietly(read, [this, open, job](const Result& result) {
    if (IsOpen(open)) Show(*open, job, result);
  });
}

void CurveImportController::Show(CurveImportDialog& dialog, const std::shared_ptr<Job>& job,
                                 const Result& result) {
  job->isReading = false;
  const texts::CatalogueTexts& texts = parts_.session.texts;
  if (result.error) {
    dialog.Tell(FailureText(texts.program, texts.curveImport.notRead, result.error));
    return;
  }
  job->source = result.source;
  if (job->isOutdated) {
    Read(dialog, job);
  } else {
    dialog.Show(result.reading);
  }
}

void CurveImportController::TakeIntoGrid(CurveImportDialog& dialog) {
  const std::optional<tables::CurveTableEntry> entry = dialog.CurrentEntry();
  if (!entry || parts_.files.IsAtWork()) return;
  dialog.accept();
  Q_EMIT AboutToChange(editor::EditStep::ImportCurve);
  PutIntoGrid(*entry, parts_.session);
  Q_EMIT TableTaken();
}

void CurveImportController::AddToLibrary(CurveImportDialog& dialog, const Job& job) {
  if (parts_.files.IsAtWork()) return;
  const interchange::JsonLibrary added = LibraryOf(dialog.Chosen());
  const Session& session = parts_.session;
  std::string taken;
  std::error_code error;
  Q_EMIT AboutToChange(editor::EditStep::Import);
  {
    const ResponsiveFiles::Work work(parts_.files);
    error = interchange::AddEntries(parts_.writer, ActiveTableFile(parts_.files, PlaceOf(session)),
                                    job.file, added, taken);
  }
  const texts::CurveImportTexts& texts = session.texts.curveImport;
  if (!taken.empty()) {
    dialog.Tell(ToQt(Expanded(session, texts.nameTaken, {taken})));
  } else if (error) {
    dialog.Tell(parts_.library.WriteFailureText(error));
  } else {
    dialog.accept();
    Q_EMIT EntriesAdded();
    const std::string count = std::to_string(added.entries.size());
    Q_EMIT Told(ToQt(Expanded(session, texts.added, {count})));
  }
}

}  // namespace zentab::app

#include "app/widgets/interchange/comparison_controller.h"

#include <QAction>
#include <QFileInfo>
#include <QPointer>

#include "app/library_change.h"
#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/curve/beside_chart.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/interchange/comparison_dialog.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/status_line.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/overlay_curves.h"
#include "editor/widgets/chart/preview_curve.h"
#include "interchange/entry_meaning.h"
#include "interchange/take_over.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

using interchange::EntryDifference;

tables::CurveTableEntry EntryIn(const std::string& line) {
  return line.empty() ? tables::CurveTableEntry() : interchange::EntryOf(line);
}

}  // namespace

ComparisonController::ComparisonController(const InterchangeParts& parts)
    : QObject(&parts.window),
      parts_(parts),
      own_(new editor::OverlayCurves(parts.chart)),
      other_(new editor::PreviewCurve(parts.chart)) {}

bool ComparisonController::IsLibrary(const std::filesystem::path& file) const {
  const auto ask = [file, active = ActiveTableFile(parts_.files, PlaceOf(parts_.session))] {
    std::error_code unknown;
    return std::filesystem::equivalent(file, active, unknown);
  };
  return platform::AskFor(parts_.files, ask).value_or(false);
}

void ComparisonController::CompareWith() {
  if (parts_.files.IsAtWork()) return;
  const QString file = parts_.dialogs.ChooseTableFile();
  if (file.isEmpty()) return;
  Q_EMIT CommandBegun();
  const auto job = std::make_shared<Job>();
  job->other = platform::ToPath(file.toStdString());
  if (IsLibrary(job->other)) {
    Q_EMIT Told(ToQt(parts_.session.texts.comparison.itself));
    return;
  }
  const QString name = QFileInfo(file).fileName();
  auto* const dialog = new ComparisonDialog(parts_.session, {*own_, *other_}, name, &parts_.window);
  const auto* const action = parts_.window.findChild<QAction*>(QStringLiteral("m_cmplibrary"));
  dialog->setWindowTitle(PlainTitle(action->text()) + ' ' + name);
  connect(dialog, &ComparisonDialog::CurrentChanged, this,
          [this, dialog, job] { ReadCurrent(*dialog, job); });
  connect(dialog, &ComparisonDialog::TakeOverWanted, this,
          [this, dialog, job] { TakeOver(*dialog, job); });
  Compare(*dialog, job, {});
  OpenBeside(*dialog, *parts_.chart.parentWidget());
}

void ComparisonController::Compare(ComparisonDialog& dialog, const Shared& job,
                                   const QString& remark) {
  dialog.ShowBusy();
  const auto compare = [place = PlaceOf(parts_.session),
                        other = job->other](platform::FileLayer& files) {
    auto result = std::make_shared<Comparison>();
    result->library.path = ActiveTableFile(files, place);
    result->other.path = other;
    result->error =
        interchange::Compare(files, result->library, result->other, result->differences);
    // What is not there has not lost all its entries.
    if (!result->error && !result->other.listing.stamp) {
      result->error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    return result;
  };
  const QPointer<ComparisonDialog> open = &dialog;
  parts_.files.Quietly(compare, [this, open, job, remark](std::shared_ptr<Comparison> result) {
    if (!IsOpen(open)) return;
    const texts::ProgramTexts& texts = parts_.session.texts.program;
    if (result->error) {
      open->Tell(FailureText(texts, texts.listFailed, result->error));
      return;
    }
    job->compared = std::move(result);
    open->Show(job->compared->differences, remark);
  });
}

// Whoever goes through the list waits for no file.
void ComparisonController::ReadCurrent(ComparisonDialog& dialog, const Shared& job) {
  const EntryDifference* const current = dialog.Current();
  if (current == nullptr || !job->compared) {
    dialog.ShowEntry({});
    return;
  }
  job->isOutdated = job->isReading;
  if (job->isReading) return;
  job->isReading = true;
  const auto read = [compared = job->compared, difference = *current](platform::FileLayer& files) {
    interchange::DifferentLines lines;
    // An entry that cannot be read shows as an empty one; taking it over says why.
    [[maybe_unused]] const std::error_code dropped =
        interchange::ReadDifference(files, compared->library, compared->other, difference, lines);
    return lines;
  };
  const QPointer<ComparisonDialog> open = &dialog;
  parts_.files.Quietly(read, [this, open, job](const interchange::DifferentLines& lines) {
    job->isReading = false;
    if (!IsOpen(open)) return;
    if (job->isOutdated) {
      ReadCurrent(*open, job);
    } else {
      open->ShowEntry({EntryIn(lines.before), EntryIn(lines.after)});
    }
  });
}

void ComparisonController::TakeOver(ComparisonDialog& dialog, const Shared& job) {
  if (parts_.files.IsAtWork() || job->isTaking) return;
  struct Prepared {
    std::error_code error;
    tables::LineChange change;
    std::vector<EntryDifference> chosen;
  };
  const auto prepare = [compared = job->compared,
                        chosen = dialog.Chosen()](platform::FileLayer& files) {
    Prepared result = {{}, {}, chosen};
    result.error =
        interchange::TakeOver(files, compared->library, compared->other, chosen, result.change);
    return result;
  };
  dialog.ShowBusy();
  job->isTaking = true;
  const QPointer<ComparisonDialog> open = &dialog;
  parts_.files.Quietly(prepare, [this, open, job](const Prepared& prepared) {
    if (!IsOpen(open)) return;
    if (prepared.error) {
      ShowFailure(*open, job, prepared.error);
    } else {
      Change(*open, job, prepared.change, prepared.chosen);
    }
  });
}

void ComparisonController::Change(ComparisonDialog& dialog, const Shared& job,
                                  const tables::LineChange& change,
                                  const std::vector<EntryDifference>& chosen) {
  Session& session = parts_.session;
  tables::EntryMark selected = parts_.library.SelectedMark();
  std::error_code error;
  Q_EMIT AboutToChange(editor::EditStep::TakeOver);
  {
    const ResponsiveFiles::Work work(parts_.files);
    error = ChangeLibrary(change, session, parts_.writer, selected);
    parts_.library.ShowChanged(selected);
  }
  if (error) {
    ShowFailure(dialog, job, error);
    return;
  }
  dialog.accept();
  const std::string names = ": " + SomeNames(chosen);
  Q_EMIT Told(ToQt(CountsText(session, session.texts.comparison.done, chosen) + names));
}

void ComparisonController::ShowFailure(ComparisonDialog& dialog, const Shared& job,
                                       std::error_code error) {
  job->isTaking = false;
  if (error == tables::kEntryChanged) {
    Compare(dialog, job, ToQt(parts_.session.texts.comparison.stale));
  } else {
    dialog.Tell(parts_.library.WriteFailureText(error));
  }
}

}  // namespace zentab::app

#include "app/widgets/library/library_export_controller.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <memory>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/files/kept_forms.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_panel.h"
#include "app/widgets/status_line.h"
#include "exchange/entry_copy.h"
#include "platform/line_reader.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"

namespace zentab::app {
namespace {

using interchange::ExportFormat;

constexpr const char* kExportForm = "ExportEntries";
constexpr const char* kWhich = "Which";
constexpr const char* kFormat = "Format";
constexpr std::size_t kOwn = 0;  // the answers
constexpr std::size_t kJson = 2;
constexpr std::size_t kAll = 1;

interchange::CsvNotation OwnNotation(const Session& session) {
  const bool hasComma = session.localeDecimalSeparator == ",";
  return {hasComma ? ';' : ',', hasComma ? ',' : '.'};
}

bool AreOne(ResponsiveFiles& files, const std::filesystem::path& one,
            const std::filesystem::path& other) {
  return platform::AskFor(files,
                          [one, other] {
                            std::error_code unknown;
                            return std::filesystem::equivalent(one, other, unknown);
                          })
      .value_or(false);
}

std::size_t AnswerIn(const FormValues& kept, const char* field, std::size_t answers) {
  for (std::size_t answer = 0; answer < answers; ++answer) {
    if (ValueOf(kept, field) == std::to_string(answer)) return answer;
  }
  return 0;
}

}  // namespace

LibraryExportController::LibraryExportController(const EntryParts& parts, QObject* parent)
    : QObject(parent), parts_(parts) {}

void LibraryExportController::AddTo(QMenu& menu) {
  const auto add = [&](const char* name, const QString& caption, auto command) {
    QAction* const action = menu.addAction(caption);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, command);
  };
  add("m_copyentries", QStringLiteral("Copy &to another file…"),
      &LibraryExportController::CopyToFile);
  add("m_exportentries", QStringLiteral("E&xport…"), &LibraryExportController::Export);
}

std::optional<LibraryExportController::Plan> LibraryExportController::AskPlan(
    std::size_t selected) {
  const Session& session = parts_.session;
  const texts::LibraryTexts& texts = session.texts.library;
  const auto text = [&](const std::string& utf8, const texts::TemplateArguments& arguments = {}) {
    return QString::fromStdString(texts::ExpandTemplate(utf8, {}, arguments));
  };
  const interchange::CsvNotation own = OwnNotation(session);
  FormValues kept = parts_.forms.Last(kExportForm);
  const Choice which = {text(texts.exportWhich),
                        {text(texts.exportSelected, {std::to_string(selected)}),
                         text(texts.exportAll, {std::to_string(session.listing.names.size())})},
                        selected > 0 ? AnswerIn(kept, kWhich, kAll + 1) : kAll};
  const Choice format = {
      text(texts.exportFormat),
      {text(texts.exportOwn, {std::string(1, own.separator), std::string(1, own.decimalSign)}),
       text(texts.exportNeutral), text(texts.exportJson)},
      AnswerIn(kept, kFormat, kJson + 1)};
  const auto answers = parts_.dialogs.Choose({text(texts.exportHeading), {which, format}});
  if (!answers) return std::nullopt;
  const std::size_t chosen = answers->at(1);
  kept = {{kWhich, std::to_string(answers->at(0))}, {kFormat, std::to_string(chosen)}};
  parts_.forms.Keep(kExportForm, kept);
  const bool isOwn = chosen == kOwn;
  return Plan{answers->at(0) == kAll || selected == 0,
              chosen == kJson ? ExportFormat::Json : ExportFormat::Csv,
              isOwn ? own : interchange::CsvNotation(), isOwn};
}

void LibraryExportController::Export() {
  if (parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  Session& session = parts_.session;
  const EntryMarks marks = MarksOf(session.listing, parts_.panel.SelectedPlaces());
  const std::optional<Plan> plan = AskPlan(marks.size());
  if (!plan) return;
  const bool isJson = plan->format == ExportFormat::Json;
  const QString name = QFileInfo(QString::fromStdString(session.tablePath)).completeBaseName() +
                       QLatin1String(isJson ? ".json" : ".csv");
  const QString file = parts_.dialogs.ChooseFileToWrite(
      {QString::fromStdString(session.texts.library.exportHeading), name,
       QLatin1String(isJson ? "JSON (*.json)" : "CSV (*.csv)")});
  if (file.isEmpty() || parts_.files.IsAtWork()) return;
  std::size_t count = 0;
  const ResponsiveFiles::Work work(parts_.files);
  const std::error_code error = Write(file, *plan, marks, count);
  const texts::LibraryTexts& texts = session.texts.library;
  if (error == tables::kEntryChanged) {
    Q_EMIT Failed(parts_.library.WriteFailureText(error));
  } else if (error) {
    Q_EMIT Failed(FailureText(session.texts.program, texts.notExported, error));
  } else {
    Q_EMIT Told(QString::fromStdString(Expanded(session, texts.exported, {std::to_string(count)})));
  }
}

std::error_code LibraryExportController::Write(const QString& file, const Plan& plan,
                                               const EntryMarks& marks, std::size_t& count) {
  struct Job {
    interchange::LibraryText text;
    std::vector<bool> chosen;
    Plan plan;
    std::string written;
  };
  const Session& session = parts_.session;
  const std::filesystem::path source = ActiveTableFile(parts_.files, PlaceOf(session));
  const std::filesystem::path target = platform::ToPath(file.toStdString());
  if (AreOne(parts_.files, source, target)) return std::make_error_code(std::errc::file_exists);
  const auto job = std::make_shared<Job>(Job{{}, {}, plan, {}});
  if (const auto error = interchange::LibraryText::Read(parts_.files, source, job->text)) {
    return error;
  }
  job->chosen.assign(job->text.LineCount(), false);
  if (plan.takesAll) {
    for (const std::size_t line : job->text.Names().lines) job->chosen[line] = true;
    count = job->text.Names().lines.size();
  } else {
    for (const tables::EntryMark& mark : marks) {
      const bool isThere = mark.index < job->text.LineCount() &&
                           tables::HashOf(job->text.Line(mark.index)) == mark.hash;
      if (!isThere) return std::make_error_code(tables::kEntryChanged);
      job->chosen[mark.index] = true;
    }
    count = marks.size();
  }
  // Of a large library this takes some seconds.
  const std::error_code made = parts_.files.Await([job] {
    if (job->plan.isForSpreadsheet) job->written = platform::kByteOrderMark;
    job->written +=
        interchange::Exported(job->text, job->chosen, job->plan.format, job->plan.notation);
    return std::error_code();
  });
  if (made) return made;
  return platform::ReplaceFile(parts_.files, target, [job](platform::OutputFile& output) {
    return output.Write(job->written);
  });
}

void LibraryExportController::CopyToFile() {
  Session& session = parts_.session;
  const std::vector<std::size_t> places = parts_.panel.SelectedPlaces();
  if (places.empty() || parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  const QString file = parts_.dialogs.ChooseTargetFile();
  if (file.isEmpty() || parts_.files.IsAtWork()) return;
  const ResponsiveFiles::Work work(parts_.files);
  std::vector<bool> selected(session.listing.lines.size());
  for (const std::size_t place : places) selected[session.listing.LineOf(place)] = true;
  const std::filesystem::path source = ActiveTableFile(parts_.files, PlaceOf(session));
  const std::filesystem::path target = platform::ToPath(file.toStdString());
  Q_EMIT AboutToChange(editor::EditStep::Import);
  const exchange::CopyResult result =
      exchange::CopyEntries(parts_.writer, source, session.listing, selected, target);
  const texts::ProgramTexts& texts = session.texts.program;
  if (result.error) {
    const std::string& what = parts_.writer.LacksBackup() ? texts.backupFailed : texts.copyFailed;
    Q_EMIT Failed(result.error == tables::kEntryChanged ? QString::fromStdString(texts.fileChanged)
                                                        : FailureText(texts, what, result.error));
    return;
  }
  // The file may be added to itself.
  if (AreOne(parts_.files, source, target)) parts_.library.ShowAddedEntries();
  const std::string count = std::to_string(result.copied);
  Q_EMIT Told(QString::fromStdString(Expanded(session, texts.entriesCopied, {count})));
}

}  // namespace zentab::app

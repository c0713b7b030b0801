#include "app/widgets/report/report_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>
#include <QRegularExpression>

#include "app/library_commands.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/report/chart_picture.h"
#include "app/widgets/report/report_dialog.h"
#include "app/widgets/report/report_document.h"
#include "app/widgets/status_line.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"

namespace zentab::app {
namespace {

constexpr const char* kPictures = "PNG (*.png);;SVG (*.svg);;PDF (*.pdf)";
constexpr const char* kReports = "PDF (*.pdf)";

// A pointer that says so while pages are drawn.
class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace

ReportController::ReportController(const ReportParts& parts)
    : QObject(&parts.window), parts_(parts), texts_(parts.session.texts.output) {}

void ReportController::TakeAssessment(const GridAssessment* result, const std::string& reference) {
  assessment_.reset();
  if (result == nullptr) return;
  assessment_ =
      ReportAssessment{result->assessment, LimitLines(parts_.session, reference, result->limits)};
}

void ReportController::CopyChart() {
  if (!Begin()) return;
  const BusyPointer busy;
  QGuiApplication::clipboard()->setMimeData(
      ChartForClipboard(parts_.chart, size_, SuggestedName(QString())).release());
  Tell(texts_.chartCopied);
}

void ReportController::SaveChart() {
  if (!Begin()) return;
  const QString title = PlainCaption(QString::fromStdString(texts_.saveChart));
  const QString file = parts_.dialogs.ChooseFileToWrite(
      {title, SuggestedName(QStringLiteral(".png")), QLatin1String(kPictures)});
  if (file.isEmpty()) return;
  const std::optional<PictureFormat> format = FormatOf(file);
  if (!format) return Tell(texts_.unknownFormat);
  const std::optional<PictureSize> size =
      parts_.dialogs.AskPictureSize({title, size_, *format == PictureFormat::Png});
  if (!size) return;
  size_ = *size;
  QByteArray bytes;
  {
    const BusyPointer busy;
    bytes = ChartPicture(parts_.chart, *format, size_, SuggestedName(QString()));
  }
  if (bytes.isEmpty()) return Tell(texts_.tooLarge);
  WriteFile(file, bytes);
}

void ReportController::Preview() {
  if (!Begin()) return;
  const ReportSettings settings = Settings();
  if (const std::optional<Report> report = ReportOn({}, settings)) {
    ShowPreview(*report, settings.paper);
  }
}

void ReportController::Print() {
  if (parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  Q_EMIT GridNeeded();
  const bool hasTable = parts_.chart.Curve().IsShown();
  ReportDialog dialog({parts_.session.listing.names, hasTable, assessment_.has_value()},
                      parts_.session.texts, Settings(), &parts_.window);
  const auto output = [&](bool (ReportController::*send)(const Report&, Paper)) {
    const std::optional<Report> report = ReportFor(dialog);
    // What could not be read or written is said in the window behind.
    if (!report || (this->*send)(*report, dialog.Settings().paper)) dialog.accept();
  };
  connect(&dialog, &ReportDialog::PreviewWanted, this, [&] {
    if (const std::optional<Report> report = ReportFor(dialog)) {
      ShowPreview(*report, dialog.Settings().paper);
    }
  });
  connect(&dialog, &ReportDialog::SaveWanted, this, [&] { output(&ReportController::Save); });
  connect(&dialog, &ReportDialog::PrintWanted, this,
          [&] { output(&ReportController::PrintChosen); });
  dialog.exec();
  KeepSettings(dialog.Settings());
}

// What the chart shows is what goes out.
bool ReportController::Begin() {
  if (parts_.files.IsAtWork()) return false;
  Q_EMIT CommandBegun();
  Q_EMIT GridNeeded();
  if (parts_.chart.Curve().IsShown()) return true;
  Tell(texts_.noCurve);
  return false;
}

ReportedTable ReportController::GridTable(bool withAssessment) const {
  ReportedTable table = TableInGrid(parts_.session);
  if (withAssessment) table.assessment = assessment_;
  return table;
}

std::optional<Report> ReportController::ReportFor(const ReportDialog& dialog) {
  return ReportOn(dialog.Entries(), dialog.Settings());
}

std::optional<Report> ReportController::ReportOn(const std::vector<std::size_t>& entries,
                                                 const ReportSettings& settings) {
  const Session& session = parts_.session;
  std::vector<ReportedTable> tables;
  if (entries.empty()) tables.push_back(GridTable(settings.withAssessment));
  const ResponsiveFiles::Work work(parts_.files);
  const std::filesystem::path file = ActiveTableFile(parts_.files, PlaceOf(session));
  tables::TableListing listing = entries.empty() ? tables::TableListing() : session.listing;
  // Their marks before the listing follows a file that has changed.
  std::vector<tables::EntryMark> marks;
  marks.reserve(entries.size());
  for (const std::size_t entry : entries) marks.push_back(listing.MarkOf(entry));
  for (std::size_t at = 0; at < entries.size(); ++at) {
    std::string line;
    if (const auto error = tables::ReadEntryLine(parts_.files, file, listing, marks[at], line)) {
      const texts::ProgramTexts& words = session.texts.program;
      Q_EMIT Told(error == tables::kEntryChanged ? QString::fromStdString(words.entryChanged)
                                                 : FailureText(words, words.readFailed, error));
      return std::nullopt;
    }
    ReportedTable table =
        TableOfLine(session.listing.names[entries[at]], line, session.localeDecimalSeparator);
    table.file = session.tablePath;
    // The pickup value is that of the instrument in use.
    if (table.instrument == session.instrument) table.modes.pickup = session.modes.pickup;
    tables.push_back(std::move(table));
  }
  return ReportOf(session, tables, settings.headerLines, LocalTime());
}

void ReportController::ShowPreview(const Report& report, Paper paper) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(PageSizeOf(paper));
  parts_.dialogs.ShowPreview(printer, [&](QPrinter& shown) { PrintOn(shown, report); });
}

void ReportController::PrintOn(QPrinter& printer, const Report& report) {
  const BusyPointer busy;
  if (!PrintReport(report, printer)) Tell(texts_.notPrinted);
}

bool ReportController::Save(const Report& report, Paper paper) {
  const QString title = QString::fromStdString(texts_.heading);
  const QString file = parts_.dialogs.ChooseFileToWrite(
      {title, SuggestedName(QStringLiteral(".pdf")), QLatin1String(kReports)});
  if (file.isEmpty()) return false;
  QByteArray bytes;
  {
    const BusyPointer busy;
    bytes = ReportPdf(report, paper);
  }
  WriteFile(file, bytes);
  return true;
}

bool ReportController::PrintChosen(const Report& report, Paper paper) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(PageSizeOf(paper));
  printer.setDocName(QString::fromStdString(report.pages.front().title));
  if (!parts_.dialogs.ChoosePrinter(printer)) return false;
  PrintOn(printer, report);
  return true;
}

void ReportController::WriteFile(const QString& file, const QByteArray& bytes) {
  const ResponsiveFiles::Work work(parts_.files);
  // A call that hangs may outlive this one.
  const auto write = [bytes](platform::OutputFile& output) {
    return output.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  };
  const auto error =
      platform::ReplaceFile(parts_.files, platform::ToPath(file.toStdString()), write);
  if (error) Q_EMIT Told(FailureText(parts_.session.texts.program, texts_.notWritten, error));
}

ReportSettings ReportController::Settings() const {
  const auto load = [&store = parts_.store, title = parts_.title] {
    return LoadReportSettings(store, title, {{}, UsualPaper(), true});
  };
  return platform::AskFor(parts_.files, load).value_or(ReportSettings());
}

void ReportController::KeepSettings(const ReportSettings& settings) {
  const auto save = [&store = parts_.store, title = parts_.title, settings] {
    return SaveReportSettings(store, title, settings);
  };
  // The report was made whether or not they are remembered.
  [[maybe_unused]] const std::error_code dropped = parts_.files.Ask(save);
}

// The entry's name, as far as file systems take it.
QString ReportController::SuggestedName(const QString& suffix) const {
  static const QRegularExpression refused(QStringLiteral(R"([\x00-\x1F\\/:*?"<>|]+)"));
  constexpr int kLongest = 80;
  const auto& source = parts_.session.source;
  const std::string& name =
      source && !source->name.empty() ? source->name : parts_.session.texts.report.unnamed;
  return QString::fromStdString(name).replace(refused, QStringLiteral("_")).left(kLongest) + suffix;
}

void ReportController::Tell(const std::string& text) { Q_EMIT Told(QString::fromStdString(text)); }

}  // namespace zentab::app

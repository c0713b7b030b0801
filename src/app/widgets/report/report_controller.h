#pragma once

#include <QObject>
#include <optional>
#include <string>

#include "app/curve_assessment.h"
#include "app/report_content.h"
#include "app/report_settings.h"
#include "app/widgets/report/picture_size.h"
#include "app/widgets/user_dialogs.h"
#include "editor/widgets/chart/curve_chart.h"
#include "platform/settings_store.h"

class QPrinter;

namespace zentab::app {

class ReportDialog;
class ResponsiveFiles;

/// What the report's commands work with; all of it outlives them.
struct ReportParts {
  const Session& session;
  ResponsiveFiles& files;
  UserDialogs& dialogs;
  platform::SettingsStore& store;
  std::string title;  // the program's title, under which the settings are kept
  editor::CurveChart& chart;
  QWidget& window;
};

/// Brings charts and reports out of the program: to the clipboard, into files and to printers.
class ReportController : public QObject {
  Q_OBJECT

 public:
  explicit ReportController(const ReportParts& parts);

 public Q_SLOTS:
  /// The assessment of the table in the grid against a reference, for whoever wants it on paper;
  /// null: there is none now.
  void TakeAssessment(const zentab::app::GridAssessment* result, const std::string& reference);
  void CopyChart();
  void SaveChart();
  /// Lets the user choose what to report on and where to.
  void Print();
  /// Shows the page of the table in the grid as it would be printed.
  void Preview();

 Q_SIGNALS:
  /// What was said of the command before is over.
  void CommandBegun();
  /// A command is about to use the grid: an open cell editor closes.
  void GridNeeded();
  /// What was done or why it was not, in one line.
  void Told(const QString& text);

 private:
  [[nodiscard]] bool Begin();
  [[nodiscard]] ReportedTable GridTable(bool withAssessment) const;
  [[nodiscard]] std::optional<Report> ReportFor(const ReportDialog& dialog);
  [[nodiscard]] std::optional<Report> ReportOn(const std::vector<std::size_t>& entries,
                                               const ReportSettings& settings);
  void ShowPreview(const Report& report, Paper paper);
  void PrintOn(QPrinter& printer, const Report& report);
  [[nodiscard]] bool Save(const Report& report, Paper paper);
  [[nodiscard]] bool PrintChosen(const Report& report, Paper paper);
  void WriteFile(const QString& file, const QByteArray& bytes);
  [[nodiscard]] ReportSettings Settings() const;
  void KeepSettings(const ReportSettings& settings);
  [[nodiscard]] QString SuggestedName(const QString& suffix) const;
  void Tell(const std::string& text);

  ReportParts parts_;
  const texts::OutputTexts& texts_;
  std::optional<ReportAssessment> assessment_;
  PictureSize size_;  // of pictures, chosen last
};

}  // namespace zentab::app

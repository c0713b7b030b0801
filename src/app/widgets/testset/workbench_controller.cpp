#include "app/widgets/testset/workbench_controller.h"

#include <QEvent>
#include <QLineEdit>
#include <utility>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/status_line.h"
#include "app/widgets/testset/equation_editor.h"
#include "app/widgets/testset/time_test_controller.h"
#include "app/widgets/testset/workbench_dialog.h"
#include "editor/widgets/chart/point_cloud.h"
#include "editor/widgets/chart/preview_curve.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

constexpr const char* kLastResults = "LastResults";
constexpr const char* kDrafts = "EquationDrafts";

std::string FieldOf(EquationId equation) {
  return std::to_string(static_cast<int>(equation.stage)) + '.' + std::to_string(equation.number);
}

EquationEditor::DraftTexts DraftsIn(const FormValues& values) {
  EquationEditor::DraftTexts drafts;
  for (int stage = 0; stage < texts::kEquationStages; ++stage) {
    for (std::size_t number = 1; number <= texts::kEquations; ++number) {
      const EquationId equation{static_cast<texts::EquationStage>(stage), number};
      const auto found = values.find(FieldOf(equation));
      if (found != values.end()) drafts[equation] = found->second;
    }
  }
  return drafts;
}

ImportFields FieldsOf(const ChartPanel& panel) {
  return {panel.text4->text().toStdString(), panel.text5->text().toStdString(),
          panel.text6->text().toStdString()};
}

}  // namespace

WorkbenchController::WorkbenchController(WorkbenchParts parts)
    : QObject(&parts.panel),
      parts_(std::move(parts)),
      preview_(new editor::PreviewCurve(*parts_.panel.chart)),
      cloud_(new editor::PointCloud(*parts_.panel.chart)),
      commandPreview_(parts_.panel.commandPreview) {
  parts_.panel.command10->installEventFilter(this);
  connect(parts_.panel.commandPreview, &QPushButton::clicked, this, &WorkbenchController::Open);
  connect(&parts_.timeTest, &TimeTestController::TableImported, this,
          &WorkbenchController::RememberResult);
}

// The last events come while the panel is being destroyed: only a QWidget is left of what is
// watched.
bool WorkbenchController::eventFilter(QObject* watched, QEvent* event) {
  if (!commandPreview_) return false;
  const auto& command = *static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::EnabledChange:
      commandPreview_->setEnabled(command.isEnabled());
      break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
      commandPreview_->setHidden(command.isHidden());
      break;
    default:
      break;
  }
  return false;
}

void WorkbenchController::Open() {
  parts_.timeTest.BeginPreview();
  const ChartPanel& panel = parts_.panel;
  const StageTips tips = {panel.text4->toolTip(), panel.text5->toolTip(), panel.text6->toolTip()};
  dialog_ =
      new WorkbenchDialog(parts_.session, *preview_, *cloud_,
                          ImportOptionsWith(parts_.session, FieldsOf(panel)), tips, panel.window());
  dialog_->setWindowTitle(PlainTitle(panel.commandPreview->text()));
  connect(&dialog_->Equations(), &EquationEditor::WriteWanted, this, &WorkbenchController::Write);
  drafts_ = parts_.forms.Last(kDrafts);
  dialog_->Equations().TakeDrafts(DraftsIn(drafts_));
  connect(dialog_, &QDialog::finished, this, &WorkbenchController::KeepDrafts);
  connect(dialog_, &QDialog::accepted, this, &WorkbenchController::Import);
  dialog_->OpenBeside(*panel.chart->parentWidget());
  Read();
}

void WorkbenchController::Read() {
  using Test = WorkbenchDialog::Test;
  const Session& session = parts_.session;
  const auto read = [folder = platform::ToPath(session.installFolder),
                     instrument = session.instrument,
                     modes = ImportOptionsWith(session, {}).modes](platform::FileLayer& files) {
    auto test = std::make_shared<Test>();
    test->points = ReadPointsOf(files, folder, instrument, modes);
    test->shown = ChartPoints(test->points.read.points);
    return std::shared_ptr<const Test>(std::move(test));
  };
  const std::optional<ResultFile> last =
      LastImported(parts_.forms.Last(kLastResults), session.instrument);
  parts_.files.Quietly(read, [dialog = dialog_, last](const std::shared_ptr<const Test>& test) {
    if (dialog) dialog->TakeTest(test, last);
  });
}

void WorkbenchController::Write(EquationId equation, const std::string& text) {
  const ResponsiveFiles::Work work(parts_.files);
  const std::filesystem::path catalogue =
      SiteCatalogueFor(parts_.files, parts_.catalogues, equation);
  const std::error_code error = WriteEquation(parts_.files, catalogue, equation, text);
  const Session& session = parts_.session;
  const texts::WorkbenchTexts& texts = session.texts.workbench;
  const std::string name = platform::ToText(catalogue.filename());
  if (!error) {
    parts_.session.texts.equations[static_cast<std::size_t>(equation.stage)][equation.number] =
        EquationInUse(parts_.files, parts_.catalogues, equation);
  }
  if (!dialog_) return;
  if (error) {
    dialog_->Equations().TellFailure(
        FailureText(session.texts.program, Expanded(session, texts.notWritten, {name}), error));
  } else {
    dialog_->Equations().TakeWritten(equation, Expanded(session, texts.written, {name}));
  }
}

// The timeout is no field of the window: the catalogue's counts again afterwards.
void WorkbenchController::Import() {
  const ImportFields fields = dialog_->Stages().Fields();
  const std::string timeout = dialog_->Stages().Options().timeout;
  parts_.panel.text4->setText(QString::fromStdString(fields.differenceType));
  parts_.panel.text5->setText(QString::fromStdString(fields.filterType));
  parts_.panel.text6->setText(QString::fromStdString(fields.meanOver));
  std::string& setting = parts_.session.texts.import.timeout;
  const std::string kept = std::exchange(setting, timeout);
  parts_.timeTest.ImportTimeTest();
  setting = kept;
}

// What was typed and not written to the catalogue is there the next time.
void WorkbenchController::KeepDrafts() {
  FormValues values;
  for (const auto& [equation, text] : dialog_->Equations().Drafts()) {
    values[FieldOf(equation)] = text;
  }
  if (values != drafts_) parts_.forms.Keep(kDrafts, values);
}

void WorkbenchController::RememberResult() {
  const auto look = [folder = platform::ToPath(parts_.session.installFolder),
                     instrument = parts_.session.instrument](platform::FileLayer& files) {
    return ResultFileOf(files, folder, instrument);
  };
  const auto keep = [this, instrument =
                               parts_.session.instrument](const std::optional<ResultFile>& file) {
    if (!file) return;
    FormValues kept = parts_.forms.Last(kLastResults);
    KeepImported(*file, instrument, kept);
    parts_.forms.Keep(kLastResults, kept);
  };
  parts_.files.Quietly(look, keep);
}

}  // namespace zentab::app

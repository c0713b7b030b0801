#include "app/widgets/testset/workbench_dialog.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include "app/session_texts.h"
#include "app/widgets/status_line.h"
#include "app/widgets/testset/equation_editor.h"
#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/point_cloud.h"

namespace zentab::app {
namespace {

using texts::EquationStage;

constexpr int kUsualWidth = 448;

std::string NameOf(const ResultFile& file) {
  return QFileInfo(QString::fromStdString(file.path)).fileName().toStdString();
}
std::string DateOf(const ResultFile& file) {
  const QDateTime changed = QDateTime::fromSecsSinceEpoch(file.changed);
  return QLocale().toString(changed, QLocale::ShortFormat).toStdString();
}

}  // namespace

WorkbenchDialog::WorkbenchDialog(const Session& session, editor::PreviewCurve& preview,
                                 editor::PointCloud& cloud, const timetest::ImportOptions& first,
                                 const StageTips& tips, QWidget* parent)
    : CurveDialog("FormWorkbench", session, preview, parent),
      cloud_(cloud),
      worker_(nullptr),
      source_(new QLabel(this)),
      older_(new QLabel(this)),
      stages_(new StageFields(session, first, tips, this)),
      equations_(new EquationEditor(session, this)) {
  source_->setObjectName(QStringLiteral("LabelSource"));
  source_->setWordWrap(true);
  older_->setObjectName(QStringLiteral("LabelOlder"));
  older_->setWordWrap(true);
  older_->hide();
  Content().addWidget(source_);
  Content().addWidget(older_);
  Content().addWidget(stages_);
  Content().addWidget(equations_, 1);
  source_->setMinimumWidth(kUsualWidth);
  for (const EquationStage stage :
       {EquationStage::Value, EquationStage::Filter, EquationStage::Difference}) {
    FollowNumber(stage, stages_->NumberOf(stage));
  }
  stages_->setFocus();
  connect(stages_, &StageFields::Changed, this, &WorkbenchDialog::Follow);
  connect(stages_, &StageFields::NumberChosen, this, &WorkbenchDialog::FollowNumber);
  connect(equations_, &EquationEditor::Changed, this, &WorkbenchDialog::Follow);
  connect(equations_, &EquationEditor::TryWanted, stages_, &StageFields::SetNumber);
  connect(&worker_, &PreviewWorker::Done, this, &WorkbenchDialog::TakePreview);
  connect(this, &QDialog::finished, this, [this] { cloud_.Hide(); });
  Refresh();
}

// What comes once it was closed leaves nothing in the chart.
void WorkbenchDialog::TakeTest(std::shared_ptr<const Test> test,
                               const std::optional<ResultFile>& last) {
  if (!isVisible()) return;
  test_ = std::move(test);
  const bool hasPoints = !test_->points.error && !test_->points.read.points.empty();
  if (hasPoints) {
    ShowSource(last);
    stages_->ShowCount(test_->points.read.points.size());
    cloud_.Show(editor::PointCloud::Kind::Measured, test_->shown);
  }
  Follow();
}

void WorkbenchDialog::ShowSource(const std::optional<ResultFile>& last) {
  const texts::WorkbenchTexts& texts = CurrentSession().texts.workbench;
  const ResultFile& file = test_->points.file;
  const std::size_t count = test_->points.read.points.size();
  const std::string& source = texts::ForCount(count, texts.sourceOne, texts.source);
  source_->setText(QString::fromStdString(
      Expanded(CurrentSession(), source, {NameOf(file), DateOf(file), std::to_string(count)})));
  if (!last || last->changed <= file.changed) return;
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, editor::FailureOn(palette().color(QPalette::Window)));
  older_->setPalette(colours);
  older_->setText(QString::fromStdString(
      Expanded(CurrentSession(), texts.older, {NameOf(*last), DateOf(*last)})));
  older_->show();
}

void WorkbenchDialog::FollowNumber(EquationStage stage, int number) {
  if (number < 1 || number > texts::kEquations) return;
  equations_->Choose({stage, static_cast<std::size_t>(number)});
}

void WorkbenchDialog::Follow() {
  const timetest::ImportOptions options = stages_->Options();
  if (test_ && !test_->points.read.points.empty() && !options.timeout.empty()) {
    worker_.Ask({test_, &test_->points.read}, options, equations_->Equations());
  }
  Refresh();
}

void WorkbenchDialog::TakePreview(const std::shared_ptr<const ImportPreview>& preview) {
  if (!isVisible()) return;
  preview_ = preview;
  stages_->ShowEffects(preview->effects);
  cloud_.Show(editor::PointCloud::Kind::Removed, preview->removed);
  cloud_.Show(editor::PointCloud::Kind::Shaped, preview->shaped);
  Refresh();
}

CurveDialog::Proposed WorkbenchDialog::Propose() {
  const texts::CatalogueTexts& texts = CurrentSession().texts;
  if (!test_) return FormFault{{}, texts.workbench.reading};
  if (test_->points.error) {
    return FormFault{
        {},
        FailureText(texts.program, texts.program.timeTestUnreadable, test_->points.error)
            .toStdString()};
  }
  if (test_->points.read.points.empty()) return FormFault{{}, texts.program.noTimeTest};
  if (stages_->Options().timeout.empty()) return FormFault{{}, texts.workbench.noTimeout};
  if (!preview_) return FormFault{{}, texts.workbench.reading};
  if (!preview_->result.error.empty()) return FormFault{{}, preview_->result.error};
  CurveProposal proposal;
  for (const timetest::MeasuredPoint& point : preview_->result.points) {
    proposal.points.push_back({point.load, point.time});
  }
  return proposal;
}

std::optional<EquationId> WorkbenchDialog::UnwrittenInUse() const {
  for (const EquationStage stage :
       {EquationStage::Difference, EquationStage::Filter, EquationStage::Value}) {
    const int number = stages_->NumberOf(stage);
    if (number < 1 || number > texts::kEquations) continue;
    const EquationId equation{stage, static_cast<std::size_t>(number)};
    if (equations_->IsDraft(equation)) return equation;
  }
  return std::nullopt;
}

// The import works with what the catalogue has.
bool WorkbenchDialog::CanBeTaken() const { return !UnwrittenInUse(); }

std::string WorkbenchDialog::Describe(const CurveProposal& proposal) const {
  const Session& session = CurrentSession();
  std::string text = CurveDialog::Describe(proposal);
  if (preview_ && preview_->result.selectedByRank) {
    text += ". " + session.texts.program.selectedByRank;
  }
  const std::optional<EquationId> equation = UnwrittenInUse();
  if (!equation) return text;
  return text + ". " +
         Expanded(session, session.texts.workbench.unwritten, {equations_->NameOf(*equation)});
}

}  // namespace zentab::app

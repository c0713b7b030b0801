#include "app/widgets/curve/assessment_controller.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/curve/assessment_panel.h"
#include "app/widgets/curve/curve_controller.h"
#include "app/widgets/library/library_controller.h"
#include "editor/widgets/chart/tolerance_band.h"
#include "tables/entry_line.h"

namespace zentab::app {
namespace {

constexpr const char* kLimitsForm = "Limits";
constexpr const char* kReferenceForm = "Reference";
constexpr std::string_view kIsCurve = "curve";

}  // namespace

AssessmentController::AssessmentController(Parts parts)
    : QObject(&parts.chart),
      parts_(std::move(parts)),
      panel_(new AssessmentPanel(parts_.session, &parts_.chart)),
      band_(new editor::ToleranceBand(*parts_.chart.chart)) {
  panel_->hide();
  parts_.chart.AddBelowChart(panel_);
  connect(panel_, &AssessmentPanel::LimitsChanged, this, &AssessmentController::Refresh);
  connect(panel_, &AssessmentPanel::LimitsEntered, this, &AssessmentController::KeepLimits);
  connect(panel_, &AssessmentPanel::EntryWanted, this, &AssessmentController::UseSelectedEntry);
  connect(panel_, &AssessmentPanel::CurveWanted, &parts_.curves, &CurveController::ChooseReference);
  connect(panel_, &AssessmentPanel::CopyWanted, this, &AssessmentController::Copy);
  connect(panel_, &AssessmentPanel::CloseWanted, this, [this] { switch_->setChecked(false); });
  connect(panel_, &AssessmentPanel::RowChosen, this, &AssessmentController::RowChosen);
  connect(&parts_.curves, &CurveController::ReferenceChosen, this, &AssessmentController::UseCurve);
  connect(parts_.chart.chart, &editor::CurveChart::CurveShown, this,
          &AssessmentController::Refresh);
}

void AssessmentController::AddTo(QMenu& menu) {
  menu.addSeparator();
  switch_ = menu.addAction(QStringLiteral("&Assess"));
  switch_->setObjectName(QStringLiteral("m_assess"));
  switch_->setShortcut(Qt::CTRL | Qt::Key_J);
  switch_->setCheckable(true);
  connect(switch_, &QAction::toggled, this, &AssessmentController::Show);
}

bool AssessmentController::IsShown() const { return switch_ != nullptr && switch_->isChecked(); }

void AssessmentController::Show(bool shown) {
  if (!shown) {
    panel_->hide();
    band_->Hide();
    Q_EMIT Assessed(nullptr, {});
    return;
  }
  if (!reference_) Begin();
  Refresh();
  // Filled, or its height would depend on how soon the reference's file is read.
  panel_->setVisible(IsShown());
}

void AssessmentController::Begin() {
  FormValues limits = FirstLimits(parts_.session);
  for (const auto& [field, value] : parts_.forms.Last(kLimitsForm)) {
    limits[field] = value;
  }
  panel_->SetLimits(limits);
  const FormValues last = parts_.forms.Last(kReferenceForm);
  if (ValueOf(last, "kind") == kIsCurve) {
    UseCurve(last);
  } else if (parts_.selected()) {
    UseSelectedEntry();
  }
}

void AssessmentController::KeepLimits() { parts_.forms.Keep(kLimitsForm, panel_->Limits()); }

void AssessmentController::UseCurve(const FormValues& values) {
  FormValues kept = values;
  kept["kind"] = kIsCurve;
  parts_.forms.Keep(kReferenceForm, kept);
  reference_ = ChosenReference{{}, kept};
  Refresh();
}

void AssessmentController::UseSelectedEntry() {
  const std::optional<std::size_t> index = parts_.selected();
  if (!index) return;
  const tables::TableListing& listing = parts_.session.listing;
  const std::string name = listing.names[*index];
  std::string line;
  if (!parts_.library.ReadLine(listing.MarkOf(*index), line)) return;
  parts_.forms.Keep(kReferenceForm, {{"kind", "entry"}});
  reference_ = ChosenReference{name, curves::PointsOf(tables::ParseEntryLine(line))};
  Refresh();
}

void AssessmentController::RefreshTexts() {
  panel_->ShowTexts();
  Refresh();
}

void AssessmentController::Refresh() {
  if (!IsShown()) return;
  const Session& session = parts_.session;
  if (!reference_) {
    panel_->ShowReference({});
    ShowFault(session.texts.curveDialogs.chooseReference);
    return;
  }
  if (const auto* const values = std::get_if<FormValues>(&reference_->curve)) {
    const auto curve = CharacteristicIn(*values, session);
    const auto* const made = std::get_if<curves::CharacteristicCurve>(&curve);
    reference_->name = made == nullptr ? std::string() : NameOf(made->Settings(), session);
  }
  panel_->ShowReference(reference_->name);
  const auto assessed = AssessGrid(session, *reference_, panel_->Limits());
  if (const auto* const fault = std::get_if<FormFault>(&assessed)) {
    ShowFault(fault->text);
  } else {
    ShowResult(std::get<GridAssessment>(assessed));
  }
}

void AssessmentController::ShowFault(const std::string& text) {
  copied_.clear();
  panel_->ShowMessage(text);
  band_->Hide();
  Q_EMIT Assessed(nullptr, {});
}

void AssessmentController::ShowResult(const GridAssessment& result) {
  copied_ = TextOf(result, *reference_, parts_.session);
  panel_->ShowResult(result);
  Q_EMIT Assessed(&result, reference_->name);
  std::vector<editor::ToleranceBand::Place> places;
  for (const BandPoint& point : result.band) {
    places.push_back({point.load, point.nominal, point.lower, point.upper});
  }
  std::vector<editor::ToleranceBand::Mark> marks;
  const double factor = parts_.session.modes.milliseconds ? curves::kMillisecondsPerSecond : 1.0;
  for (const curves::AssessedPoint& point : result.assessment.points) {
    if (point.verdict == curves::Verdict::Passed) continue;
    marks.push_back({point.measured.load, point.measured.time * factor,
                     point.verdict == curves::Verdict::Outside});
  }
  band_->Show(places, marks);
}

void AssessmentController::Copy() {
  if (!copied_.empty()) QGuiApplication::clipboard()->setText(QString::fromStdString(copied_));
}

}  // namespace zentab::app

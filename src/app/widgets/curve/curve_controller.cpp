#include "app/widgets/curve/curve_controller.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "app/grid_curve.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/curve/fit_dialog.h"
#include "app/widgets/curve/resample_dialog.h"
#include "app/widgets/curve/standard_curve_dialog.h"
#include "app/widgets/curve/thin_dialog.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/preview_curve.h"

namespace zentab::app {
namespace {

constexpr const char* kStandardForm = "StandardCurve";
constexpr const char* kOwnConstants = "OwnConstants";
constexpr const char* kFitForm = "Fit";
constexpr const char* kThinForm = "ThinOut";
constexpr const char* kResampleForm = "Resample";

struct CurveCommandRow {
  const char* name;
  const char* caption;
  void (CurveController::*command)();
  QKeyCombination key = Qt::Key_unknown;
};
constexpr CurveCommandRow kCurveCommands[] = {
    {"m_standard", "&Standard curve…", &CurveController::StandardCurve, Qt::CTRL | Qt::Key_K},
    {"m_fitcurve", "&Fit…", &CurveController::FitCurve},
    {"m_thin", "&Thin out…", &CurveController::ThinOut},
    {"m_resample", "&Resample…", &CurveController::Resample},
};

}  // namespace

CurveController::CurveController(Session& session, KeptForms forms, editor::CurveChart& chart,
                                 QWidget& window)
    : QObject(&window),
      session_(session),
      forms_(std::move(forms)),
      chart_(chart),
      window_(window),
      preview_(new editor::PreviewCurve(chart)) {}

QMenu* CurveController::AddMenu(QMenuBar& bar) const {
  QMenu* const menu = bar.addMenu(QStringLiteral("Cur&ve"));
  menu->setObjectName(QStringLiteral("m_curve"));
  for (const CurveCommandRow& row : kCurveCommands) {
    QAction* const action = menu->addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    if (row.key.key() != Qt::Key_unknown) action->setShortcut(row.key);
    connect(action, &QAction::triggered, this, row.command);
  }
  return menu;
}

// As the title of a window has it.
QString CurveController::TitleOf(const char* action) const {
  const auto* const found = window_.findChild<QAction*>(QLatin1String(action));
  return found == nullptr ? QString() : PlainTitle(found->text());
}

void CurveController::Open(CurveDialog* dialog, editor::EditStep step, const char* form,
                           const QString& title) {
  dialog->setWindowTitle(title);
  connect(dialog, &QDialog::accepted, this, [this, dialog, step, form] {
    forms_.Keep(form, dialog->Values());
    Q_EMIT AboutToChange(step);
    PutIntoGrid(dialog->Proposal().points, session_);
    Q_EMIT TableChanged();
  });
  dialog->OpenBeside(*chart_.parentWidget());
}

CurveDialog* CurveController::MakeStandardDialog() {
  Q_EMIT CommandBegun();
  const auto keepOwn = [this](const FormValues& kept) { forms_.Keep(kOwnConstants, kept); };
  return new StandardCurveDialog(session_, *preview_, forms_.Last(kStandardForm),
                                 forms_.Last(kOwnConstants), keepOwn, &window_);
}

void CurveController::StandardCurve() {
  CurveDialog* const dialog = MakeStandardDialog();
  Open(dialog, editor::EditStep::StandardCurve, kStandardForm, TitleOf("m_standard"));
}

void CurveController::ChooseReference() {
  CurveDialog* const dialog = MakeStandardDialog();
  dialog->setWindowTitle(TitleOf("m_standard"));
  connect(dialog, &QDialog::accepted, this, [this, dialog] {
    forms_.Keep(kStandardForm, dialog->Values());
    Q_EMIT ReferenceChosen(dialog->Values());
  });
  dialog->OpenBeside(*chart_.parentWidget());
}

void CurveController::FitCurve() {
  Q_EMIT CommandBegun();
  Open(new FitDialog(session_, *preview_, forms_.Last(kFitForm), &window_),
       editor::EditStep::FitCurve, kFitForm, TitleOf("m_fitcurve"));
}

void CurveController::ThinOut() {
  Q_EMIT CommandBegun();
  Open(
      new ThinDialog(session_, *preview_, forms_.Last(kThinForm), chart_.IsLogarithmic(), &window_),
      editor::EditStep::ThinOut, kThinForm, TitleOf("m_thin"));
}

void CurveController::Resample() {
  Q_EMIT CommandBegun();
  Open(new ResampleDialog(session_, *preview_, forms_.Last(kResampleForm), chart_.IsLogarithmic(),
                          &window_),
       editor::EditStep::Resample, kResampleForm, TitleOf("m_resample"));
}

}  // namespace zentab::app

#include "app/widgets/curve/thin_dialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "app/curve_reduction.h"
#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr int kFewest = 2;
constexpr int kUsual = 10;

}  // namespace

ThinDialog::ThinDialog(const Session& session, editor::PreviewCurve& preview,
                       const FormValues& last, bool logarithmic, QWidget* parent)
    : CurveDialog("FormThin", session, preview, parent),
      count_(new QSpinBox(this)),
      points_(CurveInGrid(session).rows.size()),
      logarithmic_(logarithmic) {
  auto* const form = new QFormLayout;
  auto* const label =
      new QLabel(QString::fromStdString(session.texts.curveDialogs.thinPoints), this);
  label->setBuddy(count_);
  count_->setObjectName(QStringLiteral("Field_points"));
  count_->setAccessibleName(PlainCaption(label->text()));
  count_->setRange(kFewest, std::max(kFewest, static_cast<int>(points_)));
  const std::optional<double> former = NumberIn(last, "points", ".");
  count_->setValue(static_cast<int>(std::clamp(former.value_or(kUsual), 0.0, 1000.0)));
  count_->selectAll();
  count_->setFocus();
  form->addRow(label, count_);
  Content().addLayout(form);
  Content().addStretch(1);
  connect(count_, &QSpinBox::valueChanged, this, &ThinDialog::Refresh);
  Refresh();
}

FormValues ThinDialog::Values() const { return {{"points", std::to_string(count_->value())}}; }

CurveDialog::Proposed ThinDialog::Propose() {
  return ProposeThinned(CurrentSession(), static_cast<std::size_t>(count_->value()), logarithmic_);
}

std::string ThinDialog::Describe(const CurveProposal& proposal) const {
  const std::string kept = std::to_string(proposal.points.size());
  const std::string all = std::to_string(points_);
  return Expanded(
      CurrentSession(), CurrentSession().texts.curveDialogs.thinned,
      {kept, all,
       FixedNumber(proposal.deviation.value_or(0.0) * texts::kPercent, 2, CurrentSession())});
}

}  // namespace zentab::app

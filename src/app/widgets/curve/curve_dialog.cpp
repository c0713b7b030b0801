#include "app/widgets/curve/curve_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/session_texts.h"
#include "app/widgets/curve/beside_chart.h"
#include "app/widgets/dialog_buttons.h"
#include "editor/widgets/chart/preview_curve.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr int kFormWidth = 358;  // of what is in it, at least

}  // namespace

CurveDialog::CurveDialog(const char* name, const Session& session, editor::PreviewCurve& preview,
                         QWidget* parent)
    : QDialog(parent),
      session_(session),
      preview_(preview),
      content_(new QVBoxLayout),
      outcome_(new QLabel(this)) {
  setObjectName(QLatin1String(name));
  setFont(parent->font());
  setWindowModality(Qt::WindowModal);
  outcome_->setObjectName(QStringLiteral("LabelOutcome"));
  outcome_->setWordWrap(true);
  // Two lines always: a message does not move the buttons.
  outcome_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  outcome_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QDialogButtonBox* const buttons = MakeDialogButtons(session, *this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  connect(this, &QDialog::finished, this, [this] { preview_.Hide(); });
  // Not by closing: whoever takes what was accepted may have to wait for files.
  connect(this, &QDialog::finished, this, &QObject::deleteLater);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(content_, 1);
  layout->addWidget(outcome_);
  layout->addWidget(buttons);
  // One of the dialog's own would let it become too narrow for longer texts.
  outcome_->setMinimumWidth(kFormWidth);
}

void CurveDialog::OpenBeside(const QWidget& chart) { app::OpenBeside(*this, chart); }

QLabel* CurveDialog::PlaceFor(const FormFault&) { return nullptr; }

std::string CurveDialog::Describe(const CurveProposal& proposal) const {
  const texts::CurveDialogTexts& texts = session_.texts.curveDialogs;
  const std::string count = std::to_string(proposal.points.size());
  if (!proposal.deviation) return Expanded(session_, texts.count, {count});
  return Expanded(session_, texts.deviation,
                  {count, FixedNumber(*proposal.deviation * texts::kPercent, 2, session_)});
}

void CurveDialog::Refresh() {
  Proposed proposed = Propose();
  const auto* const fault = std::get_if<FormFault>(&proposed);
  proposal_ = fault ? CurveProposal() : std::get<CurveProposal>(std::move(proposed));
  std::vector<QPointF> points;
  for (const curves::Point& point : proposal_.points) points.emplace_back(point.load, point.time);
  preview_.Show(points);
  ok_->setEnabled(!proposal_.points.empty() && CanBeTaken());
  std::string text;
  if (fault == nullptr) text = Describe(proposal_);
  QLabel* const place = fault ? PlaceFor(*fault) : nullptr;
  if (place != nullptr) {
    place->setText(QString::fromStdString(fault->text));
  } else if (fault != nullptr) {
    text = fault->text;
  }
  outcome_->setText(QString::fromStdString(text));
}

}  // namespace zentab::app

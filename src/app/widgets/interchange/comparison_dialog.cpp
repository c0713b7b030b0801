#include "app/widgets/interchange/comparison_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/curve_text.h"
#include "app/session_texts.h"
#include "app/widgets/interchange/difference_model.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/qt_text.h"
#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/overlay_curves.h"
#include "editor/widgets/chart/overlay_style.h"
#include "editor/widgets/chart/preview_curve.h"

namespace zentab::app {
namespace {

constexpr QSize kComparisonSize(430, 600);
constexpr QSize kSampleSize(36, 10);
constexpr double kLineWidth = 2.0;
constexpr int kEntryLines = 6;
constexpr int kOwnCurve = 1;  // the number of its pen: no colour near that of a preview

// A piece of a line as the chart has it.
QPixmap Sample(const QPen& pen, const QWidget& on) {
  const qreal ratio = on.devicePixelRatioF();
  QPixmap picture(kSampleSize * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(pen);
  const int middle = kSampleSize.height() / 2;
  painter.drawLine(0, middle, kSampleSize.width(), middle);
  return picture;
}

}  // namespace

ComparisonDialog::ComparisonDialog(const Session& session, Curves curves, const QString& otherName,
                                   QWidget* parent)
    : QDialog(parent),
      session_(session),
      drawn_(curves),
      model_(new DifferenceModel(this)),
      counts_(new QLabel(this)),
      filter_(new QLineEdit(this)),
      list_(new QListView(this)),
      all_(new QCheckBox(ToQt(session.texts.comparison.chooseAll), this)),
      entry_(new QLabel(this)),
      outcome_(new QLabel(this)) {
  setObjectName(QStringLiteral("FormCompare"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(parent->font());
  setWindowModality(Qt::WindowModal);
  auto* const layout = new QVBoxLayout(this);
  BuildList(*layout);
  BuildEntry(*layout, otherName);
  BuildButtons(*layout);
  connect(this, &QDialog::finished, this, &ComparisonDialog::HideCurves);
  resize(kComparisonSize);
  list_->setFocus();
}

void ComparisonDialog::BuildList(QBoxLayout& layout) {
  const texts::ComparisonTexts& texts = session_.texts.comparison;
  counts_->setObjectName(QStringLiteral("LabelCounts"));
  counts_->setWordWrap(true);
  filter_->setObjectName(QStringLiteral("TextFind"));
  filter_->setPlaceholderText(ToQt(texts.filter));
  filter_->setAccessibleName(ToQt(texts.filter));
  filter_->setClearButtonEnabled(true);
  list_->setObjectName(QStringLiteral("ListDifferences"));
  list_->setAccessibleName(ToQt(texts.list));
  list_->setUniformItemSizes(true);
  list_->setItemDelegate(new RoomyRows(list_));
  list_->setModel(model_);
  all_->setObjectName(QStringLiteral("CheckAll"));
  connect(filter_, &QLineEdit::textChanged, model_, &DifferenceModel::SetFilter);
  connect(model_, &QAbstractItemModel::dataChanged, this, &ComparisonDialog::ShowChosen);
  connect(model_, &QAbstractItemModel::modelReset, this, [this] {
    list_->setCurrentIndex(model_->index(0));
    ShowChosen();
    Q_EMIT CurrentChanged();
  });
  connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &ComparisonDialog::CurrentChanged);
  connect(all_, &QCheckBox::clicked, this, &ComparisonDialog::ChooseShown);
  layout.addWidget(counts_);
  layout.addWidget(filter_);
  layout.addWidget(list_, 1);
  layout.addWidget(all_);
}

QLabel* ComparisonDialog::AddSample(QBoxLayout& layout, const QString& name) {
  auto* const sample = new QLabel(this);
  sample->setFixedSize(kSampleSize);
  layout.addWidget(sample);
  auto* const label = new QLabel(name, this);
  label->setTextFormat(Qt::PlainText);
  layout.addWidget(label);
  return sample;
}

void ComparisonDialog::BuildEntry(QBoxLayout& layout, const QString& otherName) {
  auto* const samples = new QHBoxLayout;
  ownSample_ = AddSample(*samples, ToQt(session_.texts.comparison.own));
  samples->addSpacing(kSampleSize.width() / 2);
  otherSample_ = AddSample(*samples, otherName);
  samples->addStretch(1);
  layout.addLayout(samples);
  entry_->setObjectName(QStringLiteral("LabelEntry"));
  entry_->setTextFormat(Qt::PlainText);
  entry_->setWordWrap(true);
  entry_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // As many lines always as an entry can have: the list does not move.
  entry_->setMinimumHeight(kEntryLines * fontMetrics().lineSpacing());
  layout.addWidget(entry_);
  outcome_->setObjectName(QStringLiteral("LabelOutcome"));
  outcome_->setTextFormat(Qt::PlainText);
  outcome_->setWordWrap(true);
  layout.addWidget(outcome_);
}

void ComparisonDialog::BuildButtons(QBoxLayout& layout) {
  auto* const box = new QDialogButtonBox(this);
  take_ = box->addButton(ToQt(session_.texts.comparison.takeOver), QDialogButtonBox::ActionRole);
  take_->setObjectName(QStringLiteral("CommandTakeOver"));
  QPushButton* const close =
      box->addButton(ToQt(session_.texts.program.close), QDialogButtonBox::RejectRole);
  close->setObjectName(QStringLiteral("CommandClose"));
  // Enter changes no library.
  for (QPushButton* const button : {take_, close}) button->setAutoDefault(false);
  connect(take_, &QPushButton::clicked, this, &ComparisonDialog::TakeOverWanted);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout.addWidget(box);
}

void ComparisonDialog::ShowBusy() {
  take_->setEnabled(false);
  outcome_->setText(ToQt(session_.texts.comparison.comparing));
}

void ComparisonDialog::Show(std::vector<interchange::EntryDifference> differences,
                            const QString& remark) {
  const texts::ComparisonTexts& texts = session_.texts.comparison;
  counts_->setText(
      ToQt(differences.empty() ? texts.same : CountsText(session_, texts.counts, differences)));
  filter_->clear();
  model_->Show(std::move(differences));
  if (!remark.isEmpty()) outcome_->setText(remark);
}

void ComparisonDialog::Tell(const QString& text) {
  ShowChosen();
  outcome_->setText(text);
}

std::vector<interchange::EntryDifference> ComparisonDialog::Chosen() const {
  return model_->Chosen();
}

const interchange::EntryDifference* ComparisonDialog::Current() const {
  return model_->At(list_->currentIndex().row());
}

void ComparisonDialog::ShowChosen() {
  const std::string count = std::to_string(model_->ChosenCount());
  outcome_->setText(ToQt(Expanded(session_, session_.texts.comparison.chosen, {count})));
  take_->setEnabled(model_->ChosenCount() > 0);
  all_->setEnabled(model_->rowCount() > 0);
  all_->setCheckState(model_->ShownState());
}

// One click chooses all where only some were chosen.
void ComparisonDialog::ChooseShown() { model_->ChooseShown(model_->ShownState() != Qt::Checked); }

void ComparisonDialog::HideCurves() {
  drawn_.own.Show({});
  drawn_.other.Hide();
}

void ComparisonDialog::ShowEntry(const ComparedEntry& entry) {
  const interchange::EntryDifference* const difference = Current();
  if (difference == nullptr) {
    HideCurves();
    entry_->clear();
    return;
  }
  std::string text;
  for (const std::string& line : DifferenceLines(difference->kind, entry, session_)) {
    text += (text.empty() ? "" : "\n") + line;
  }
  const ShownEntry own = EntryInChart(entry.own, session_);
  const ShownEntry other = EntryInChart(entry.other, session_);
  if (!own.areConverted || !other.areConverted) {
    text += "\n" + session_.texts.comparison.noCurve;
  }
  entry_->setText(ToQt(text));
  const QColor base = palette().color(QPalette::Base);
  ownSample_->setPixmap(Sample(editor::OverlayPen(kOwnCurve, base), *this));
  otherSample_->setPixmap(Sample(QPen(editor::ProposalOn(base), kLineWidth, Qt::DashLine), *this));
  // Curves in units that nothing converts would not be beside one another.
  std::vector<editor::DrawnOverlay> drawn;
  if (own.areConverted && own.curve.points.size() > 1) drawn.push_back({kOwnCurve, own.curve});
  drawn_.own.Show(std::move(drawn));
  drawn_.other.Show(other.areConverted ? other.curve : editor::ChartCurve());
}

}  // namespace zentab::app

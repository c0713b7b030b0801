#include "app/widgets/curve/fit_dialog.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/window_font.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr int kFitColumns = 5;
constexpr int kRowRole = Qt::UserRole;
constexpr int kPointsHeight = 130;
constexpr int kRowRoom = 6;
constexpr QSize kFitSize(540, 560);

}  // namespace

FitDialog::FitDialog(const Session& session, editor::PreviewCurve& preview, const FormValues& last,
                     QWidget* parent)
    : CurveDialog("FormFit", session, preview, parent),
      points_(new QListWidget(this)),
      table_(new QTableWidget(0, kFitColumns, this)),
      pickupFree_(new QCheckBox(ToQt(session.texts.curveDialogs.pickupFree), this)) {
  BuildFits();
  BuildPoints();
  pickupFree_->setObjectName(QStringLiteral("CheckPickup"));
  pickupFree_->setChecked(ValueOf(last, "pickupfree") == "1");
  Content().addWidget(pickupFree_);
  auto* const use = new QLabel(ToQt(session.texts.curveDialogs.fitUse), this);
  use->setForegroundRole(QPalette::PlaceholderText);
  use->setWordWrap(true);
  Content().addWidget(use);
  connect(pickupFree_, &QCheckBox::toggled, this, &FitDialog::FitAgain);
  connect(points_, &QListWidget::itemChanged, this, &FitDialog::FitAgain);
  connect(table_, &QTableWidget::itemSelectionChanged, this, &FitDialog::Refresh);
  resize(kFitSize * TextScale());
  table_->setFocus();
  FitAgain();
}

void FitDialog::BuildFits() {
  const texts::CurveDialogTexts& texts = CurrentSession().texts.curveDialogs;
  table_->setObjectName(QStringLiteral("TableFits"));
  table_->setAccessibleName(ToQt(texts.fitFamily));
  table_->setHorizontalHeaderLabels({ToQt(texts.fitFamily), ToQt(texts.fitMultiplier),
                                     ToQt(texts.fitPickup), ToQt(texts.fitRms),
                                     ToQt(texts.fitLargest)});
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoom);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  table_->horizontalHeader()->setMinimumSectionSize(table_->horizontalHeader()->sectionSizeHint(0));
  Content().addWidget(table_, 1);
}

void FitDialog::BuildPoints() {
  const Session& session = CurrentSession();
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  auto* const label = new QLabel(ToQt(texts.fitPoints), this);
  label->setBuddy(points_);
  points_->setObjectName(QStringLiteral("ListPoints"));
  points_->setAccessibleName(PlainCaption(label->text()));
  points_->setMaximumHeight(static_cast<int>(kPointsHeight * TextScale()));
  const GridCurve grid = CurveInGrid(session);
  const std::vector<curves::Point> seconds = grid.table.InSeconds();
  for (std::size_t at = 0; at < seconds.size(); ++at) {
    const std::string row = std::to_string(grid.rows[at]);
    const std::string load = texts::NumberText(seconds[at].load, session.localeDecimalSeparator);
    const std::string time = texts::NumberText(seconds[at].time, session.localeDecimalSeparator);
    auto* const item =
        new QListWidgetItem(ToQt(Expanded(session, texts.fitPoint, {row, load, time})), points_);
    item->setData(kRowRole, grid.rows[at]);
    item->setCheckState(Qt::Checked);
  }
  Content().addWidget(label);
  Content().addWidget(points_);
}

std::set<int> FitDialog::Excluded() const {
  std::set<int> rows;
  for (int at = 0; at < points_->count(); ++at) {
    const QListWidgetItem* const item = points_->item(at);
    if (item->checkState() != Qt::Checked) rows.insert(item->data(kRowRole).toInt());
  }
  return rows;
}

void FitDialog::FitAgain() {
  auto fitted = FitGrid(CurrentSession(), Excluded(), pickupFree_->isChecked());
  fits_.clear();
  fault_.clear();
  if (const auto* const fault = std::get_if<FormFault>(&fitted)) {
    fault_ = fault->text;
  } else {
    fits_ = std::get<std::vector<curves::FamilyFit>>(std::move(fitted));
  }
  ShowFits(fits_);
  Refresh();
}

void FitDialog::ShowFits(const std::vector<curves::FamilyFit>& fits) {
  const QSignalBlocker quiet(table_);
  const std::optional<curves::Family> chosen = chosen_;
  table_->setRowCount(static_cast<int>(fits.size()));
  for (int at = 0; at < table_->rowCount(); ++at) {
    const FitRow row = RowOf(fits[static_cast<std::size_t>(at)], CurrentSession());
    const std::string* const cells[kFitColumns] = {&row.family, &row.multiplier, &row.pickup,
                                                   &row.rootMeanSquare, &row.largest};
    for (int column = 0; column < kFitColumns; ++column) {
      auto* const item = new QTableWidgetItem(ToQt(*cells[column]));
      item->setToolTip(ToQt(row.remark.empty() ? *cells[column] : row.remark));
      if (column > 0) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      table_->setItem(at, column, item);
    }
  }
  // Who has chosen one goes on looking at it, wherever it ranks now.
  const auto place = std::ranges::find_if(
      fits, [&](const curves::FamilyFit& fit) { return fit.characteristic.family == chosen; });
  if (fits.empty()) return;
  table_->selectRow(place == fits.end() ? 0 : static_cast<int>(place - fits.begin()));
}

FormValues FitDialog::Values() const {
  return {{"pickupfree", pickupFree_->isChecked() ? "1" : "0"}};
}

CurveDialog::Proposed FitDialog::Propose() {
  leftOut_ = 0;
  if (!fault_.empty()) return FormFault{{}, fault_};
  const int row = table_->currentRow();
  if (row < 0 || static_cast<std::size_t>(row) >= fits_.size()) return CurveProposal();
  chosen_ = fits_[static_cast<std::size_t>(row)].characteristic.family;
  FittedTable fitted = TableOf(fits_[static_cast<std::size_t>(row)], CurrentSession());
  leftOut_ = fitted.leftOut;
  return std::move(fitted.proposal);
}

std::string FitDialog::Describe(const CurveProposal& proposal) const {
  const int row = table_->currentRow();
  if (proposal.points.empty() || row < 0) return {};
  const FitRow shown = RowOf(fits_[static_cast<std::size_t>(row)], CurrentSession());
  std::string text = shown.constants;
  if (!shown.remark.empty()) text += (text.empty() ? "" : ". ") + shown.remark;
  if (leftOut_ == 0) return text;
  const texts::CurveDialogTexts& texts = CurrentSession().texts.curveDialogs;
  const std::string& below = texts::ForCount(leftOut_, texts.fitBelowOne, texts.fitBelow);
  return text + (text.empty() ? "" : ". ") +
         Expanded(CurrentSession(), below, {std::to_string(leftOut_)});
}

}  // namespace zentab::app

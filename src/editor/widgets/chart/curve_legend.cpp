#include "editor/widgets/chart/curve_legend.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <algorithm>

namespace zentab::editor {
namespace {

constexpr QSize kSample(36, 12);  // logical pixels
constexpr int kRows = 3;          // that are seen at a time
constexpr int kColumns = 3;       // about so many names in a row

QIcon SampleOf(const QPen& pen, double ratio) {
  QPixmap sample(kSample * ratio);
  sample.setDevicePixelRatio(ratio);
  sample.fill(Qt::transparent);
  QPainter painter(&sample);
  painter.setPen(pen);
  painter.drawLine(0, kSample.height() / 2, kSample.width(), kSample.height() / 2);
  return QIcon(sample);
}

}  // namespace

CurveLegend::CurveLegend(QWidget* parent)
    : QListView(parent), model_(new QStandardItemModel(this)) {
  setObjectName(QStringLiteral("ListLegend"));
  setFlow(QListView::LeftToRight);
  setWrapping(true);
  setResizeMode(QListView::Adjust);
  setMovement(QListView::Static);
  setSpacing(2);
  setIconSize(kSample);
  setFrameShape(QFrame::NoFrame);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // There is only a current one, which the keys are for.
  setSelectionMode(QAbstractItemView::NoSelection);
  setModel(model_);
  hide();
  connect(model_, &QStandardItemModel::itemChanged, this, [this](const QStandardItem* item) {
    Q_EMIT Switched(item->row(), item->checkState() == Qt::Checked);
  });
}

void CurveLegend::Show(const std::vector<LegendRow>& rows) {
  const QSignalBlocker own(this);
  const int current = CurrentRow();
  model_->setRowCount(static_cast<int>(rows.size()));
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const LegendRow& shown = rows[at];
    const int row = static_cast<int>(at);
    if (model_->item(row) == nullptr) model_->setItem(row, new QStandardItem);
    QStandardItem* const item = model_->item(row);
    item->setText(shown.text);
    item->setIcon(SampleOf(shown.pen, devicePixelRatioF()));
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    item->setFlags(shown.isShowable && at > 0 ? flags | Qt::ItemIsUserCheckable : flags);
    const bool isShown = shown.isOn && shown.isShowable;
    if (at > 0) item->setCheckState(isShown ? Qt::Checked : Qt::Unchecked);
  }
  setCurrentIndex(model_->index(std::clamp(current, 0, model_->rowCount() - 1), 0));
  setVisible(rows.size() > 1);
  updateGeometry();
}

QSize CurveLegend::sizeHint() const {
  const int height = std::max(fontMetrics().height(), kSample.height()) + 2 * spacing() + 2;
  const int rows = std::clamp((model_->rowCount() + kColumns - 1) / kColumns, 1, kRows);
  return {QListView::sizeHint().width(), rows * height + 2 * spacing() + 2};
}

QSize CurveLegend::minimumSizeHint() const { return {0, sizeHint().height()}; }

void CurveLegend::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete && CurrentRow() > 0) {
    Q_EMIT RemovalWanted(CurrentRow());
    return;
  }
  QListView::keyPressEvent(event);
}

}  // namespace zentab::editor

#include "editor/widgets/row_light.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <utility>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/curve_grid_view.h"

namespace zentab::editor {
namespace {

constexpr double kLightPen = 2.0;
constexpr int kTint = 40;  // of 255, over the row

}  // namespace

RowLight::RowLight(CurveGridView& grid) : QWidget(grid.viewport()), grid_(grid) {
  setObjectName(QStringLiteral("RowLight"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
  grid.viewport()->setMouseTracking(true);
  grid.viewport()->installEventFilter(this);
  connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, this, &RowLight::Place);
}

void RowLight::Light(int row) {
  row_ = row;
  Place();
}

void RowLight::Place() {
  const QAbstractItemModel& model = *grid_.model();
  const int row = row_ - kFirstRow;
  const QRect place = row_ == 0 ? QRect()
                                : grid_.visualRect(model.index(row, 0)) |
                                      grid_.visualRect(model.index(row, model.columnCount() - 1));
  setVisible(place.isValid());
  if (!place.isValid()) return;
  setGeometry(place);
  // Below the field of an open cell.
  lower();
}

void RowLight::Hover(int row) {
  if (std::exchange(hovered_, row) != row) Q_EMIT RowHovered(row);
}

bool RowLight::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove: {
      const int row = grid_.rowAt(static_cast<QMouseEvent*>(event)->position().toPoint().y());
      Hover(row < 0 ? 0 : row + kFirstRow);
      break;
    }
    case QEvent::Leave:
      Hover(0);
      break;
    case QEvent::Resize:
      Place();
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void RowLight::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QColor colour = AccentOn(palette().color(QPalette::Base));
  painter.setPen(QPen(colour, kLightPen));
  colour.setAlpha(kTint);
  painter.setBrush(colour);
  painter.drawRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
}

}  // namespace zentab::editor

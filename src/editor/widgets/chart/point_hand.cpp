#include "editor/widgets/chart/point_hand.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {
namespace {

constexpr double kReach = 8.0;      // logical pixels from a point that takes hold of it
constexpr double kLineReach = 5.0;  // from the line

// The place on the way between two others that is nearest to a third one.
QPointF NearestOn(const QPointF& from, const QPointF& to, const QPointF& place) {
  const QPointF way = to - from;
  const double length = QPointF::dotProduct(way, way);
  if (length <= 0.0) return from;
  return from + way * std::clamp(QPointF::dotProduct(place - from, way) / length, 0.0, 1.0);
}

double Distance(const QPointF& one, const QPointF& other) { return QLineF(one, other).length(); }

}  // namespace

PointHand::PointHand(CurveChart& chart) : QObject(&chart), chart_(chart) {
  chart.installEventFilter(this);
}

QPointF PointHand::PixelOf(const ChartPoint& point) const {
  return {chart_.xAxis->coordToPixel(point.load), chart_.yAxis->coordToPixel(point.time)};
}

ScreenPlace PointHand::PlaceAt(const QPointF& pixel) const {
  const auto step = [](const QCPAxis& axis, double at) {
    return std::abs(axis.pixelToCoord(at + 0.5) - axis.pixelToCoord(at - 0.5));
  };
  return {chart_.xAxis->pixelToCoord(pixel.x()), chart_.yAxis->pixelToCoord(pixel.y()),
          step(*chart_.xAxis, pixel.x()), step(*chart_.yAxis, pixel.y())};
}

bool PointHand::Press(const QMouseEvent& event) {
  // Another window may have taken the release.
  [[maybe_unused]] const bool wasHeld = Release();
  if (event.button() != Qt::LeftButton) return false;
  double least = kReach;
  for (const ChartPoint& point : chart_.Curve().points) {
    const double distance = Distance(PixelOf(point), event.position());
    if (distance > least) continue;
    least = distance;
    held_ = {point.row, event.position(), PixelOf(point)};
  }
  if (!held_) return false;
  chart_.setFocus(Qt::MouseFocusReason);
  Q_EMIT Picked(held_->row);
  return true;
}

bool PointHand::Drag(const QMouseEvent& event) {
  if (!held_ || (event.buttons() & Qt::LeftButton) == 0) {
    ShowCursor(event.position());
    return false;
  }
  QPointF way = event.position() - held_->pressed;
  if (!held_->isDragged) {
    if (way.manhattanLength() < QApplication::startDragDistance()) return true;
    held_->isDragged = true;
    chart_.HoldView(true);
    Q_EMIT DragBegun(held_->row);
  }
  MovedNumbers moved{way.x() != 0.0, way.y() != 0.0};
  if ((event.modifiers() & Qt::ShiftModifier) != 0) {
    moved.load = std::abs(way.x()) >= std::abs(way.y());
    moved.time = !moved.load;
    (moved.load ? way.ry() : way.rx()) = 0.0;
  }
  const QRectF area(chart_.axisRect()->rect());
  const QPointF wanted = held_->point + way;
  const QPointF inside(std::clamp(wanted.x(), area.left(), area.right()),
                       std::clamp(wanted.y(), area.top(), area.bottom()));
  Q_EMIT Dragged(held_->row, PlaceAt(inside), moved);
  return true;
}

bool PointHand::Release() {
  if (!held_) return false;
  LetGo(&PointHand::DragEnded);
  return true;
}

void PointHand::LetGo(void (PointHand::*signal)()) {
  const bool wasDragged = held_->isDragged;
  held_.reset();
  if (!wasDragged) return;
  chart_.HoldView(false);
  Q_EMIT(this->*signal)();
}

bool PointHand::DoubleClick(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return false;
  const std::vector<ChartPoint>& points = chart_.Curve().points;
  int row = 0;
  double least = kLineReach;
  QPointF nearest;
  for (std::size_t at = 0; at < points.size(); ++at) {
    const QPointF to = PixelOf(points[at]);
    // On a point there is one already.
    if (Distance(to, event.position()) <= kReach) return true;
    if (at == 0) continue;
    const QPointF place = NearestOn(PixelOf(points[at - 1]), to, event.position());
    const double distance = Distance(place, event.position());
    if (distance > least) continue;
    least = distance;
    nearest = place;
    row = points[at - 1].row;
  }
  if (row == 0) return false;
  Q_EMIT PointWanted(row, PlaceAt(nearest));
  return true;
}

bool PointHand::OnKey(const QKeyEvent& event) {
  if (held_) return true;
  if (event.key() != Qt::Key_Delete || event.modifiers() != Qt::NoModifier) return false;
  Q_EMIT RemovalWanted();
  return true;
}

// Comes before the key itself, which others on the chart may want.
bool PointHand::OnAnyKey(QKeyEvent& event) {
  if (!held_) return false;
  event.accept();
  if (event.key() == Qt::Key_Escape) LetGo(&PointHand::DragAbandoned);
  return true;
}

void PointHand::ShowCursor(const QPointF& pixel) const {
  const auto& points = chart_.Curve().points;
  const bool isOnPoint = std::any_of(points.begin(), points.end(), [&](const ChartPoint& point) {
    return Distance(PixelOf(point), pixel) <= kReach;
  });
  if (isOnPoint) {
    chart_.setCursor(Qt::SizeAllCursor);
  } else {
    chart_.unsetCursor();
  }
}

bool PointHand::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return Press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      return Drag(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return Release();
    case QEvent::MouseButtonDblClick:
      return DoubleClick(*static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
      return held_.has_value();
    case QEvent::ShortcutOverride:
      return OnAnyKey(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
      return OnKey(*static_cast<QKeyEvent*>(event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

}  // namespace zentab::editor

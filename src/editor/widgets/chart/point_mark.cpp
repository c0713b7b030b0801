#include "editor/widgets/chart/point_mark.h"

#include <QPainter>

namespace zentab::editor {
namespace {

constexpr int kMarkSide = 13;

}  // namespace

PointMark::PointMark(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  resize(kMarkSide, kMarkSide);
  hide();
}

void PointMark::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

// A window lies on whole pixels; the dot inside makes up for the rest.
void PointMark::PlaceAt(const QPointF& place) {
  const QPoint corner = (place - QPointF(kMarkSide, kMarkSide) / 2.0).toPoint();
  if (middle_ != place - corner) update();
  middle_ = place - corner;
  move(corner);
}

void PointMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour_);
  constexpr double kRadius = (kMarkSide - 2) / 2.0;
  painter.drawEllipse(middle_, kRadius, kRadius);
}

}  // namespace zentab::editor

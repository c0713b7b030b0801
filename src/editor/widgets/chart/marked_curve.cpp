#include "editor/widgets/chart/marked_curve.h"

#include <cmath>

namespace zentab::editor {
namespace {

// The marker's middle in its picture, which has room for the pen; in logical pixels.
constexpr double kMarkerMiddle = MarkedCurve::kMarkerSize / 2.0 + 1.0;
constexpr double kRingWidth = 1.5;

}  // namespace

MarkedCurve::MarkedCurve(QCPAxis* keyAxis, QCPAxis* valueAxis) : QCPCurve(keyAxis, valueAxis) {
  // The plot looks at the size only: how far outside the axes a marker can be seen.
  setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, kMarkerSize));
}

void MarkedCurve::SetColours(const QColor& line, const QColor& fill, Qt::PenStyle style) {
  setPen(QPen(line, 2.0, style));
  ring_ = line;
  fill_ = fill;
  markers_ = {};
}

void MarkedCurve::draw(QCPPainter* painter) {
  // The plot moves what is antialiased by half a logical pixel. From the corner to the middle of a
  // pixel, where straight lines are drawn, it is half one of the device.
  const bool isMoved = !painter->modes().testFlag(QCPPainter::pmVectorized);
  const double move = isMoved ? 0.5 / painter->device()->devicePixelRatioF() - 0.5 : 0.0;
  painter->save();
  painter->translate(move, move);
  QCPCurve::draw(painter);
  painter->restore();
}

void MarkedCurve::drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& points,
                                  const QCPScatterStyle&) const {
  // On paper a circle is one at any size.
  if (painter->modes().testFlag(QCPPainter::pmNoCaching)) {
    painter->setAntialiasing(true);
    SetMarkerPen(*painter);
    for (const QPointF& point : points) {
      painter->drawEllipse(point, kMarkerSize / 2.0, kMarkerSize / 2.0);
    }
    return;
  }
  const double ratio = painter->device()->devicePixelRatioF();
  if (!qFuzzyCompare(pixelRatio_, ratio)) markers_ = {};
  pixelRatio_ = ratio;
  const QTransform toDevice = painter->deviceTransform();
  const QTransform fromDevice = toDevice.inverted();
  for (const QPointF& point : points) {
    // Pictures lie on whole pixels of the device: which one is drawn makes up for the rest.
    const QPointF place = toDevice.map(point) - QPointF(kMarkerMiddle, kMarkerMiddle) * ratio;
    const double x = std::round(place.x() * kParts);
    const double y = std::round(place.y() * kParts);
    const QPointF corner(std::floor(x / kParts), std::floor(y / kParts));
    painter->drawPixmap(fromDevice.map(corner), Marker(static_cast<int>(x - corner.x() * kParts),
                                                       static_cast<int>(y - corner.y() * kParts)));
  }
}

void MarkedCurve::SetMarkerPen(QPainter& painter) const {
  painter.setPen(QPen(ring_, kRingWidth));
  painter.setBrush(fill_);
}

// Drawn once for a screen: as a picture it is put down many times faster than as a circle.
const QPixmap& MarkedCurve::Marker(int right, int down) const {
  QPixmap& marker =
      markers_[static_cast<std::size_t>(down) * kParts + static_cast<std::size_t>(right)];
  if (!marker.isNull()) return marker;
  const int side = static_cast<int>(std::ceil(2.0 * kMarkerMiddle * pixelRatio_)) + 1;
  marker = QPixmap(side, side);
  marker.fill(Qt::transparent);
  QPainter painter(&marker);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(static_cast<double>(right) / kParts, static_cast<double>(down) / kParts);
  painter.scale(pixelRatio_, pixelRatio_);
  SetMarkerPen(painter);
  painter.drawEllipse(QPointF(kMarkerMiddle, kMarkerMiddle), kMarkerSize / 2.0, kMarkerSize / 2.0);
  painter.end();
  marker.setDevicePixelRatio(pixelRatio_);
  return marker;
}

}  // namespace zentab::editor

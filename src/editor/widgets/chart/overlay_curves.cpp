#include "editor/widgets/chart/overlay_curves.h"

#include "editor/widgets/chart/overlay_style.h"

namespace zentab::editor {
namespace {

constexpr double kFar = 10000.0;  // logical pixels beyond which a place need not be exact

}  // namespace

OverlayCurves::OverlayCurves(CurveChart& chart) : QCPLayerable(&chart), chart_(chart) {
  if (chart.layer(QStringLiteral("overlays")) == nullptr) {
    chart.addLayer(QStringLiteral("overlays"), chart.layer(QStringLiteral("main")),
                   QCustomPlot::limBelow);
  }
  setLayer(QStringLiteral("overlays"));
  connect(&chart, &CurveChart::PaletteChanged, this, [this] { picture_ = {}; });
}

void OverlayCurves::Show(std::vector<DrawnOverlay> overlays) {
  overlays_ = std::move(overlays);
  picture_ = {};
  std::optional<Extent> whole;
  for (const DrawnOverlay& overlay : overlays_) {
    const ChartCurve& curve = overlay.curve;
    if (!whole) whole = Extent{curve.load, curve.time};
    whole->load = {std::min(whole->load.minimum, curve.load.minimum),
                   std::max(whole->load.maximum, curve.load.maximum)};
    whole->time = {std::min(whole->time.minimum, curve.time.minimum),
                   std::max(whole->time.maximum, curve.time.maximum)};
  }
  chart_.SetExtent(this, whole);
}

QRect OverlayCurves::clipRect() const { return chart_.axisRect()->rect(); }

void OverlayCurves::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(true);
}

void OverlayCurves::DrawLines(QPainter& painter) const {
  const QColor background = chart_.palette().color(QPalette::Base);
  const auto on = [](const QCPAxis& axis, double value) {
    return std::clamp(axis.coordToPixel(value), -kFar, kFar);
  };
  for (const DrawnOverlay& overlay : overlays_) {
    QPolygonF line;
    for (const ChartPoint& point : overlay.curve.points) {
      line.append({on(*chart_.xAxis, point.load), on(*chart_.yAxis, point.time)});
    }
    painter.setPen(OverlayPen(overlay.number, background));
    painter.drawPolyline(line);
  }
}

void OverlayCurves::draw(QCPPainter* painter) {
  if (overlays_.empty()) return;
  const bool isScreen = !painter->modes().testFlag(QCPPainter::pmVectorized) &&
                        !painter->modes().testFlag(QCPPainter::pmNoCaching);
  if (!isScreen) {
    DrawLines(*painter);
    return;
  }
  const ChartView view = ViewOf(chart_, *painter);
  if (picture_.isNull() || !(view == shown_)) {
    shown_ = view;
    picture_ = QPixmap(view.area.size() * view.ratio);
    picture_.setDevicePixelRatio(view.ratio);
    picture_.fill(Qt::transparent);
    QPainter lines(&picture_);
    lines.setRenderHint(QPainter::Antialiasing);
    lines.translate(-view.area.topLeft());
    // In the middle of a pixel of the device, as the grid's curve.
    lines.translate(0.5 / view.ratio, 0.5 / view.ratio);
    DrawLines(lines);
  }
  // The painter of a plot is moved by half a pixel for what is antialiased.
  painter->setAntialiasing(false);
  painter->drawPixmap(view.area.topLeft(), picture_);
}

}  // namespace zentab::editor

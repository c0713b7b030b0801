#include "editor/widgets/chart/point_ring.h"

#include <QPainter>
#include <algorithm>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {
namespace {

constexpr int kSide = 21;
constexpr double kRadius = 8.0;
constexpr double kPen = 2.0;

}  // namespace

PointRing::PointRing(CurveChart& chart) : QWidget(&chart), chart_(chart) {
  setObjectName(QStringLiteral("PointRing"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  resize(kSide, kSide);
  hide();
  connect(&chart, &CurveChart::CurveShown, this, &PointRing::Place);
  connect(&chart, &QCustomPlot::afterReplot, this, &PointRing::Place);
}

void PointRing::Light(int row) {
  row_ = row;
  Place();
}

void PointRing::Place() {
  const auto& points = chart_.Curve().points;
  const auto lit = std::find_if(points.begin(), points.end(),
                                [this](const ChartPoint& point) { return point.row == row_; });
  const bool isInView = lit != points.end() && chart_.xAxis->range().contains(lit->load) &&
                        chart_.yAxis->range().contains(lit->time);
  setVisible(isInView);
  if (!isInView) return;
  const QPointF place(chart_.xAxis->coordToPixel(lit->load), chart_.yAxis->coordToPixel(lit->time));
  const QPoint corner = (place - QPointF(kSide, kSide) / 2.0).toPoint();
  // In the middle of a pixel, as the curve.
  const double half = 0.5 / devicePixelRatioF();
  middle_ = place - corner + QPointF(half, half);
  move(corner);
  update();
}

void PointRing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(AccentOn(palette().color(QPalette::Base)), kPen));
  painter.drawEllipse(middle_, kRadius, kRadius);
}

}  // namespace zentab::editor

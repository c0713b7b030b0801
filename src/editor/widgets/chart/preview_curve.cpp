#include "editor/widgets/chart/preview_curve.h"

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/marked_curve.h"

namespace zentab::editor {

PreviewCurve::PreviewCurve(CurveChart& chart)
    : QObject(&chart), chart_(chart), line_(new MarkedCurve(chart.xAxis, chart.yAxis)) {
  line_->setVisible(false);
  connect(&chart, &CurveChart::PaletteChanged, this, &PreviewCurve::ApplyPalette);
  ApplyPalette();
}

void PreviewCurve::Show(const std::vector<QPointF>& points) {
  line_->setVisible(!points.empty());
  QVector<double> places;
  QVector<double> loads;
  QVector<double> times;
  for (const QPointF& point : points) {
    places.append(static_cast<double>(places.size()));
    loads.append(point.x());
    times.append(point.y());
  }
  line_->setData(places, loads, times, true);
  chart_.SetExtent(this, ExtentOf(points));
}

void PreviewCurve::Show(const ChartCurve& curve) {
  std::vector<QPointF> points;
  for (const ChartPoint& point : curve.points) points.emplace_back(point.load, point.time);
  Show(points);
}

void PreviewCurve::ApplyPalette() {
  const QColor base = chart_.palette().color(QPalette::Base);
  line_->SetColours(ProposalOn(base), base, Qt::DashLine);
}

}  // namespace zentab::editor

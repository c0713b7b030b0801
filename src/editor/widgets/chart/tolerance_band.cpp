#include "editor/widgets/chart/tolerance_band.h"

#include <algorithm>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {
namespace {

constexpr double kFailedSize = 13.0;
constexpr double kOutsideSize = 10.0;
constexpr int kOpacity = 40;  // of 255
// Where a limit is wider than the time itself: as low as anybody looks.
constexpr double kLowest = 1e-3;  // of the nominal time

}  // namespace

ToleranceBand::ToleranceBand(CurveChart& chart)
    : QObject(&chart),
      chart_(chart),
      upper_(chart.addGraph()),
      lower_(chart.addGraph()),
      nominal_(chart.addGraph()),
      failed_(new QCPCurve(chart.xAxis, chart.yAxis)),
      outside_(new QCPCurve(chart.xAxis, chart.yAxis)) {
  upper_->setChannelFillGraph(lower_);
  // Below curve and points.
  for (QCPGraph* const graph : {upper_, lower_, nominal_}) {
    graph->setLayer(QStringLiteral("grid"));
  }
  for (QCPCurve* const marks : {failed_, outside_}) marks->setLineStyle(QCPCurve::lsNone);
  connect(&chart, &CurveChart::PaletteChanged, this, &ToleranceBand::ApplyPalette);
  ApplyPalette();
  Hide();
}

void ToleranceBand::Show(const std::vector<Place>& places, const std::vector<Mark>& marks) {
  QVector<double> loads;
  QVector<double> lower;
  QVector<double> nominal;
  QVector<double> upper;
  std::vector<QPointF> corners;
  for (const Place& place : places) {
    loads.append(place.load);
    nominal.append(place.nominal);
    upper.append(place.upper);
    lower.append(std::max(place.lower, place.nominal * kLowest));
    corners.emplace_back(place.load, place.nominal);
    corners.emplace_back(place.load, place.upper);
  }
  upper_->setData(loads, upper, true);
  lower_->setData(loads, lower, true);
  nominal_->setData(loads, nominal, true);
  for (QCPCurve* const curve : {failed_, outside_}) {
    QVector<double> markLoads;
    QVector<double> markTimes;
    for (const Mark& mark : marks) {
      if (mark.isOutside != (curve == outside_)) continue;
      markLoads.append(mark.load);
      markTimes.append(mark.time);
    }
    curve->setData(markLoads, markTimes);
  }
  chart_.SetExtent(this, ExtentOf(corners));
}

void ToleranceBand::ApplyPalette() {
  const QColor base = chart_.palette().color(QPalette::Base);
  const QColor text = chart_.palette().color(QPalette::Text);
  const QColor line = Mix(base, text, 0.55);
  QColor fill = text;
  fill.setAlpha(kOpacity);
  upper_->setBrush(fill);
  upper_->setPen(QPen(line, 1.0));
  lower_->setPen(QPen(line, 1.0));
  nominal_->setPen(QPen(line, 1.0, Qt::DashLine));
  failed_->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDiamond, QPen(FailureOn(base), 2.0),
                                           Qt::NoBrush, kFailedSize));
  outside_->setScatterStyle(
      QCPScatterStyle(QCPScatterStyle::ssSquare, QPen(line, 1.5), Qt::NoBrush, kOutsideSize));
}

}  // namespace zentab::editor

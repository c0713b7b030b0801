#include "editor/widgets/chart/difference_panel.h"

#include <algorithm>

#include "editor/widgets/chart/axis_colours.h"

namespace zentab::editor {
namespace {

constexpr int kHeight = 150;          // logical pixels
constexpr double kLeast = 0.5;        // per cent that are in view in any case, up and down
constexpr double kRangeMargin = 0.1;  // of the range
// More lines than these are drawn in the plainest way: their dashes cost most of a drag's frame.
constexpr std::size_t kFinelyDrawn = 8;

}  // namespace

DifferencePanel::DifferencePanel(CurveChart& chart, QWidget* parent)
    : QCustomPlot(parent), chart_(chart) {
  setObjectName(QStringLiteral("DifferencePanel"));
  setFixedHeight(kHeight);
  setFocusPolicy(Qt::NoFocus);
  setPlottingHint(QCP::phFastPolylines);
  setNotAntialiasedElements(QCP::aeGrid | QCP::aeAxes | QCP::aeZeroLine);
  axisRect()->setupFullAxesBox(true);
  // The numbers stand at the chart's axis above.
  for (QCPAxis* const axis : {xAxis, xAxis2, yAxis2}) axis->setTickLabels(false);
  xAxis2->setTicks(false);
  yAxis2->setTicks(false);
  connect(&chart, &QCustomPlot::afterReplot, this, &DifferencePanel::FollowChart);
  connect(&chart, &CurveChart::CurveShown, this, &DifferencePanel::FollowChart);
  connect(&chart, &CurveChart::PaletteChanged, this, &DifferencePanel::ApplyColours);
  ApplyColours();
  hide();
}

void DifferencePanel::FollowChart() {
  if (isHidden()) return;
  const QRect area = chart_.axisRect()->rect();
  const QMargins margins(area.left(), 4, chart_.width() - area.right() - 1, 8);
  const bool isSame = xAxis->range() == chart_.xAxis->range() &&
                      xAxis->scaleType() == chart_.xAxis->scaleType() &&
                      xAxis->ticker() == chart_.xAxis->ticker() && axisRect()->margins() == margins;
  if (isSame) return;
  axisRect()->setAutoMargins(QCP::msNone);
  axisRect()->setMargins(margins);
  xAxis->setScaleType(chart_.xAxis->scaleType());
  xAxis->setTicker(chart_.xAxis->ticker());
  xAxis->setRange(chart_.xAxis->range());
  replot(rpQueuedReplot);
}

void DifferencePanel::Show(const std::vector<DrawnDifference>& differences) {
  while (plottableCount() > static_cast<int>(differences.size())) {
    removePlottable(plottableCount() - 1);
  }
  const bool isPlain = differences.size() > kFinelyDrawn;
  double least = -kLeast;
  double most = kLeast;
  for (std::size_t at = 0; at < differences.size(); ++at) {
    if (static_cast<int>(at) >= plottableCount()) new QCPCurve(xAxis, yAxis);
    auto* const curve = static_cast<QCPCurve*>(plottable(static_cast<int>(at)));
    QVector<double> places;
    QVector<double> loads;
    QVector<double> percents;
    for (const PercentAt& place : differences[at].places) {
      places.append(static_cast<double>(places.size()));
      loads.append(place.load);
      percents.append(place.percent);
      least = std::min(least, place.percent);
      most = std::max(most, place.percent);
    }
    curve->setData(places, loads, percents, true);
    QPen pen = differences[at].pen;
    if (isPlain) pen.setWidthF(1.0);
    curve->setAntialiased(!isPlain);
    curve->setPen(pen);
  }
  const double margin = (most - least) * kRangeMargin;
  yAxis->setRange(least - margin, most + margin);
  setVisible(!differences.empty());
  FollowChart();
  replot(rpQueuedReplot);
}

void DifferencePanel::SetTitle(const QString& title) {
  setAccessibleName(title);
  yAxis->setLabel(title);
}

void DifferencePanel::ApplyColours() {
  const QPalette& colours = chart_.palette();
  setBackground(QBrush(colours.color(QPalette::Base)));
  for (QCPAxis* const axis : {xAxis, yAxis, xAxis2, yAxis2}) {
    ColourAxis(*axis, colours, chart_.font());
    axis->grid()->setZeroLinePen(axis->basePen());
  }
  replot(rpQueuedReplot);
}

}  // namespace zentab::editor

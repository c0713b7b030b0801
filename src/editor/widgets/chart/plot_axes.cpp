#include "editor/widgets/chart/plot_axes.h"

#include <algorithm>
#include <cmath>

#include "editor/widgets/chart/axis_colours.h"
#include "editor/widgets/chart/factor_ticker.h"
#include "editor/widgets/chart/log_paper_ticker.h"

namespace zentab::editor {
namespace {

constexpr double kAxisMargin = 0.06;  // of the axis, on both sides of the curve

// The axes refuse ranges near the limits of a double, and would go on showing an earlier one.
constexpr double kLargestPower = 200.0;
constexpr double kLargest = 1e200;

QCPRange WithMargin(const Range& wanted, bool logarithmic) {
  if (logarithmic) {
    const double low = std::clamp(std::log10(wanted.minimum), -kLargestPower, kLargestPower);
    const double high = std::clamp(std::log10(wanted.maximum), -kLargestPower, kLargestPower);
    const double margin = std::max((high - low) * kAxisMargin, 0.02);
    return {std::pow(10.0, low - margin), std::pow(10.0, high + margin)};
  }
  const double low = std::clamp(wanted.minimum, -kLargest, kLargest);
  const double high = std::clamp(wanted.maximum, -kLargest, kLargest);
  const double span = high - low;
  const double margin =
      span > 1.0 / kLargest ? span * kAxisMargin : std::max(std::abs(low), 1.0) * 0.1;
  return {low - margin, high + margin};
}

bool IsLogarithmic(const QCPAxis& axis) { return axis.scaleType() == QCPAxis::stLogarithmic; }

bool CanShow(const Range& limits, const Range& extent, bool logarithmic) {
  const bool hasPlace = !logarithmic || limits.minimum > 0.0;
  return hasPlace && limits.minimum < extent.maximum && limits.maximum > extent.minimum;
}

void FitAxis(QCPAxis& axis, const std::optional<Range>& byHand, const Range& extent) {
  const bool logarithmic = IsLogarithmic(axis);
  if (byHand && CanShow(*byHand, extent, logarithmic)) {
    axis.setRange(byHand->minimum, byHand->maximum);
  } else {
    axis.setRange(WithMargin(extent, logarithmic));
  }
}

double Decades(const QCPAxis& axis) { return std::log10(axis.range().upper / axis.range().lower); }

// So many decades around the middle of the range.
void SetDecades(QCPAxis& axis, double decades) {
  const double middle = std::log10(axis.range().lower) + Decades(axis) / 2.0;
  axis.setRange(std::pow(10.0, middle - decades / 2.0), std::pow(10.0, middle + decades / 2.0));
}

}  // namespace

PlotAxes::PlotAxes(QCustomPlot& plot)
    : plot_(plot),
      load_(*plot.xAxis),
      time_(*plot.yAxis),
      linearTicker_(new QCPAxisTicker),
      logTicker_(new LogPaperTicker) {
  for (QCPAxis* const axis : {&load_, &time_}) {
    axis->grid()->setSubGridVisible(true);
    axis->grid()->setZeroLinePen(Qt::NoPen);
    axis->setLabelPadding(6);
    axis->setTickLength(0, 5);
    axis->setSubTickLength(0, 3);
  }
  plot.axisRect()->setupFullAxesBox(true);
  for (QCPAxis* const axis : {plot.xAxis2, plot.yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  plot.axisRect()->setMinimumMargins(QMargins(8, 12, 16, 8));
}

bool PlotAxes::SetKinds(const ViewAxes& wanted, const std::optional<Extent>& whole) {
  const auto [load, time] = PossibleKinds(wanted.logarithmic, whole && whole->load.minimum > 0.0,
                                          whole && whole->time.minimum > 0.0);
  const bool isFirst = loadFactor_ == 0.0;
  const bool isSame = Kinds() == AxisKinds{load, time} && !isFirst;
  if (isSame && loadFactor_ == wanted.loadFactor) return false;
  loadFactor_ = wanted.loadFactor;
  const auto& loadTicker = load ? logTicker_ : linearTicker_;
  load_.setScaleType(load ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
  load_.setTicker(loadFactor_ == 1.0
                      ? loadTicker
                      : QSharedPointer<QCPAxisTicker>(new FactorTicker(loadTicker, loadFactor_)));
  time_.setScaleType(time ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
  time_.setTicker(time ? logTicker_ : linearTicker_);
  return !isSame;
}

void PlotAxes::Fit(const ViewAxes& wanted, const std::optional<Extent>& whole) {
  if (!whole) return;
  FitAxis(load_, wanted.loads, whole->load);
  FitAxis(time_, wanted.times, whole->time);
  if (wanted.squareDecades && Kinds().AreLogarithmic()) MakeSquare();
}

// Whichever axis has room to spare shows more.
void PlotAxes::MakeSquare() {
  const QSize size = plot_.axisRect()->size();
  if (size.width() < 1 || size.height() < 1) return;
  const double length =
      std::min(size.width() / Decades(load_), size.height() / Decades(time_));  // of a decade
  SetDecades(load_, size.width() / length);
  SetDecades(time_, size.height() / length);
}

void PlotAxes::KeepSquare(const ViewAxes& wanted) {
  const QSize size = plot_.axisRect()->size();
  if (!wanted.squareDecades || !Kinds().AreLogarithmic() || size.width() < 1) return;
  SetDecades(time_, Decades(load_) * size.height() / size.width());
}

AxisKinds PlotAxes::Kinds() const { return {IsLogarithmic(load_), IsLogarithmic(time_)}; }

void PlotAxes::ApplyColours(const QPalette& colours, const QFont& font) {
  for (QCPAxis* const axis : {plot_.xAxis, plot_.yAxis, plot_.xAxis2, plot_.yAxis2}) {
    ColourAxis(*axis, colours, font);
  }
}

}  // namespace zentab::editor

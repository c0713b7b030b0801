#include "editor/widgets/chart/curve_chart.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/log_paper_ticker.h"
#include "editor/widgets/chart/marked_curve.h"
#include "editor/widgets/chart/point_mark.h"

namespace zentab::editor {
namespace {

constexpr double kMargin = 0.06;  // of the axis, on both sides of the curve

// The axes refuse ranges near the limits of a double, and would go on showing an earlier one.
constexpr double kLargestPower = 200.0;
constexpr double kLargest = 1e200;

QCPRange WithMargin(const Range& wanted, bool logarithmic) {
  if (logarithmic) {
    const double low = std::clamp(std::log10(wanted.minimum), -kLargestPower, kLargestPower);
    const double high = std::clamp(std::log10(wanted.maximum), -kLargestPower, kLargestPower);
    const double margin = std::max((high - low) * kMargin, 0.02);
    return {std::pow(10.0, low - margin), std::pow(10.0, high + margin)};
  }
  const double low = std::clamp(wanted.minimum, -kLargest, kLargest);
  const double high = std::clamp(wanted.maximum, -kLargest, kLargest);
  const double span = high - low;
  const double margin = span > 1.0 / kLargest ? span * kMargin : std::max(std::abs(low), 1.0) * 0.1;
  return {low - margin, high + margin};
}

// Whether a line whose ends lie outside of it passes through the area.
bool Crosses(const QRectF& area, const QLineF& line) {
  const QLineF falling(area.topLeft(), area.bottomRight());
  const QLineF rising(area.bottomLeft(), area.topRight());
  return line.intersects(falling, nullptr) == QLineF::BoundedIntersection ||
         line.intersects(rising, nullptr) == QLineF::BoundedIntersection;
}

}  // namespace

std::optional<Extent> ExtentOf(const std::vector<QPointF>& points) {
  if (points.empty()) return std::nullopt;
  const auto [left, right] = std::ranges::minmax_element(points, {}, &QPointF::x);
  const auto [low, high] = std::ranges::minmax_element(points, {}, &QPointF::y);
  return Extent{{left->x(), right->x()}, {low->y(), high->y()}};
}

CurveChart::CurveChart(QWidget* parent)
    : QCustomPlot(parent),
      line_(new MarkedCurve(xAxis, yAxis)),
      mark_(new PointMark(this)),
      linearTicker_(new QCPAxisTicker),
      logTicker_(new LogPaperTicker) {
  setObjectName(QStringLiteral("MSChart1"));
  // Segment by segment: a polyline of this width costs ten times as much, and markers hide joints.
  setPlottingHint(QCP::phFastPolylines);
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  // Straight grid lines gain nothing from it and cost most of the drawing time.
  setNotAntialiasedElements(QCP::aeGrid | QCP::aeSubGrid | QCP::aeAxes);
  // One buffer instead of two halves what every refresh has to fill and blend.
  layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
  connect(this, &QCustomPlot::afterReplot, this, [this] {
    buffersFresh_ = true;
    PlaceMark();
  });
  for (QCPAxis* const axis : {xAxis, yAxis}) {
    axis->grid()->setSubGridVisible(true);
    axis->grid()->setZeroLinePen(Qt::NoPen);
    axis->setLabelPadding(6);
    axis->setTickLength(0, 5);
    axis->setSubTickLength(0, 3);
  }
  axisRect()->setupFullAxesBox(true);
  for (QCPAxis* const axis : {xAxis2, yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  axisRect()->setMinimumMargins(QMargins(8, 12, 16, 8));
  ApplyPalette();
}

void CurveChart::ShowCurve(const ChartCurve& curve) {
  const bool hasContent = curve.IsShown() || !extents_.empty();
  if (curve == curve_ && isHidden() != hasContent) return;
  // Who zoomed into another curve, before the chart was hidden, wanted to see that one.
  if (isHidden()) userMovedView_ = false;
  const ChartCurve before = std::exchange(curve_, curve);
  setVisible(hasContent);
  if (hasContent) ShowChange(before);
  Q_EMIT CurveShown();
}

void CurveChart::ShowChange(const ChartCurve& before) {
  SetCurveData();
  const QCPRange loads = xAxis->range();
  const QCPRange times = yAxis->range();
  ApplyScaleType();
  if (!userMovedView_ || !IsInView()) FitRanges();
  // An edit changes one point and mostly no axis: only its surroundings are drawn, and straight
  // to the window. The plot's own way draws everything into a picture first.
  const bool sameAxes = loads == xAxis->range() && times == yAxis->range();
  buffersFresh_ = false;
  if (!sameAxes) updateLayout();
  PlaceMark();
  update(sameAxes ? ChangedArea(before) : rect());
}

void CurveChart::SetExtent(const QObject* drawn, const std::optional<Extent>& extent) {
  if (extent) {
    extents_[drawn] = *extent;
  } else {
    extents_.erase(drawn);
  }
  if (isHidden()) userMovedView_ = false;
  setVisible(curve_.IsShown() || !extents_.empty());
  SetCurveData();
  ApplyScaleType();
  if (!userMovedView_) FitRanges();
  replot(rpQueuedReplot);
}

std::optional<Extent> CurveChart::WholeExtent() const {
  std::optional<Extent> whole;
  const auto widen = [](Range& range, const Range& by) {
    range.minimum = std::min(range.minimum, by.minimum);
    range.maximum = std::max(range.maximum, by.maximum);
  };
  if (!curve_.points.empty()) whole = Extent{curve_.load, curve_.time};
  for (const auto& [drawn, extent] : extents_) {
    if (!whole) whole = extent;
    widen(whole->load, extent.load);
    widen(whole->time, extent.time);
  }
  return whole;
}

void CurveChart::SetCurveData() {
  // A curve is drawn through its points in the order of the grid's rows, which nobody sorts.
  QVector<double> places;
  QVector<double> loads;
  QVector<double> times;
  for (const ChartPoint& point : curve_.points) {
    places.append(point.row);
    loads.append(point.load);
    times.append(point.time);
  }
  line_->setData(places, loads, times, true);
}

QPointF CurveChart::PlaceOf(const ChartPoint& point) const {
  return {xAxis->coordToPixel(point.load), yAxis->coordToPixel(point.time)};
}

bool CurveChart::IsInView() const {
  const QRectF view(axisRect()->rect());
  QPointF before;
  for (std::size_t at = 0; at < curve_.points.size(); ++at) {
    const QPointF place = PlaceOf(curve_.points[at]);
    if (view.contains(place) || (at > 0 && Crosses(view, {before, place}))) return true;
    before = place;
  }
  return false;
}

QRectF CurveChart::AreaAround(const ChartCurve& curve, std::size_t point) const {
  const std::size_t first = point > 0 ? point - 1 : 0;
  const std::size_t last = std::min(point + 1, curve.points.size() - 1);
  QPolygonF corners;
  for (std::size_t at = first; at <= last; ++at) {
    corners.append(PlaceOf(curve.points[at]));
  }
  constexpr double kRoom = MarkedCurve::kMarkerSize;
  return corners.boundingRect().adjusted(-kRoom, -kRoom, kRoom, kRoom);
}

QRect CurveChart::ChangedArea(const ChartCurve& before) const {
  if (before.points.size() != curve_.points.size()) return rect();
  QRectF area;
  for (std::size_t point = 0; point < curve_.points.size(); ++point) {
    if (before.points[point] == curve_.points[point]) continue;
    area = area.united(AreaAround(before, point)).united(AreaAround(curve_, point));
  }
  return (area & QRectF(rect())).toAlignedRect();
}

void CurveChart::paintEvent(QPaintEvent* event) {
  // The window may have come to a screen of another resolution.
  if (!qFuzzyCompare(bufferDevicePixelRatio(), devicePixelRatioF())) {
    setBufferDevicePixelRatio(devicePixelRatioF());
    buffersFresh_ = false;
    replot(rpQueuedReplot);
  }
  if (buffersFresh_) {
    QCustomPlot::paintEvent(event);
    return;
  }
  QCPPainter painter(this);
  painter.fillRect(event->rect(), palette().base());
  draw(&painter);
}

void CurveChart::FitRanges() {
  userMovedView_ = false;
  const std::optional<Extent> whole = WholeExtent();
  if (!whole) return;
  xAxis->setRange(WithMargin(whole->load, IsLogarithmic()));
  yAxis->setRange(WithMargin(whole->time, IsLogarithmic()));
}

void CurveChart::Fit() {
  FitRanges();
  replot(rpQueuedReplot);
}

void CurveChart::SetAxisTitles(const QString& load, const QString& time) {
  xAxis->setLabel(load);
  yAxis->setLabel(time);
  replot(rpQueuedReplot);
}

void CurveChart::SetLogarithmicWanted(bool wanted) {
  logarithmicWanted_ = wanted;
  ApplyScaleType();
  Fit();
}

void CurveChart::SetDecimalSeparator(const QString& separator) {
  QLocale numbers(separator == QLatin1String(",") ? QLocale::German : QLocale::C);
  numbers.setNumberOptions(QLocale::OmitGroupSeparator);
  setLocale(numbers);
}

void CurveChart::MarkRow(int row) {
  markedRow_ = row;
  PlaceMark();
}

void CurveChart::PlaceMark() {
  const auto marked =
      std::find_if(curve_.points.begin(), curve_.points.end(),
                   [this](const ChartPoint& point) { return point.row == markedRow_; });
  const bool inView = marked != curve_.points.end() && xAxis->range().contains(marked->load) &&
                      yAxis->range().contains(marked->time);
  mark_->setVisible(inView);
  if (!inView) return;
  // In the middle of a pixel, as the curve.
  const double half = 0.5 / devicePixelRatioF();
  mark_->PlaceAt(PlaceOf(*marked) + QPointF(half, half));
}

void CurveChart::ApplyScaleType() {
  const std::optional<Extent> whole = WholeExtent();
  const bool isPositive = whole && whole->load.minimum > 0.0 && whole->time.minimum > 0.0;
  const bool logarithmic = logarithmicWanted_ && isPositive;
  const auto type = logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear;
  if (xAxis->scaleType() == type && xAxis->ticker() == (logarithmic ? logTicker_ : linearTicker_)) {
    return;
  }
  for (QCPAxis* const axis : {xAxis, yAxis}) {
    axis->setScaleType(type);
    axis->setTicker(logarithmic ? logTicker_ : linearTicker_);
  }
  // A view chosen on the other scale means nothing on this one.
  userMovedView_ = false;
}

void CurveChart::ApplyPalette() {
  const QPalette& colours = palette();
  const QColor text = colours.color(QPalette::Text);
  const QColor base = colours.color(QPalette::Base);
  const QColor accent = AccentOn(base);
  setBackground(QBrush(base));
  for (QCPAxis* const axis : {xAxis, yAxis, xAxis2, yAxis2}) {
    const QPen pen(Mix(base, text, 0.55));
    axis->setBasePen(pen);
    axis->setTickPen(pen);
    axis->setSubTickPen(pen);
    axis->setLabelColor(text);
    axis->setTickLabelColor(text);
    axis->setLabelFont(font());
    axis->setTickLabelFont(font());
    axis->grid()->setPen(QPen(Mix(base, text, 0.20)));
    axis->grid()->setSubGridPen(QPen(Mix(base, text, 0.08)));
  }
  line_->SetColours(accent, base);
  mark_->SetColour(accent);
  Q_EMIT PaletteChanged();
  replot(rpQueuedReplot);
}

void CurveChart::changeEvent(QEvent* event) {
  QCustomPlot::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    ApplyPalette();
  }
}

void CurveChart::mouseDoubleClickEvent(QMouseEvent* event) {
  QCustomPlot::mouseDoubleClickEvent(event);
  Fit();
}

void CurveChart::wheelEvent(QWheelEvent* event) {
  userMovedView_ = true;
  QCustomPlot::wheelEvent(event);
}

void CurveChart::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) userMovedView_ = true;
  QCustomPlot::mouseMoveEvent(event);
}

}  // namespace zentab::editor

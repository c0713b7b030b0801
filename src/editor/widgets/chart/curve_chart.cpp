#include "editor/widgets/chart/curve_chart.h"

#include <algorithm>
#include <utility>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/marked_curve.h"
#include "editor/widgets/chart/point_mark.h"

namespace zentab::editor {
namespace {

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
      axes_(*this) {
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
  if (!isViewHeld_) {
    ApplyScaleType();
    if (!userMovedView_ || !IsInView()) FitRanges();
  }
  // An edit changes one point and mostly no axis: only its surroundings are drawn, and straight
  // to the window. The plot's own way draws everything into a picture first.
  const bool sameAxes = loads == xAxis->range() && times == yAxis->range();
  buffersFresh_ = false;
  drawsStraight_ = true;
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
  // What moves over the chart uncovers it again and again: from the picture.
  if (!buffersFresh_ && !std::exchange(drawsStraight_, false)) replot(rpQueuedRefresh);
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
  axes_.Fit(wanted_, WholeExtent());
}

void CurveChart::Fit() {
  FitRanges();
  replot(rpQueuedReplot);
}

void CurveChart::HoldView(bool held) {
  isViewHeld_ = held;
  if (held) return;
  ApplyScaleType();
  if (!userMovedView_) Fit();
}

void CurveChart::SetAxisTitles(const QString& load, const QString& time) {
  xAxis->setLabel(load);
  yAxis->setLabel(time);
  replot(rpQueuedReplot);
}

void CurveChart::SetAxes(const ViewAxes& wanted) {
  if (wanted == wanted_) return;
  wanted_ = wanted;
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
  // A view chosen on the other scale means nothing on this one.
  if (axes_.SetKinds(wanted_, WholeExtent())) userMovedView_ = false;
}

void CurveChart::ApplyPalette() {
  const QColor base = palette().color(QPalette::Base);
  const QColor accent = AccentOn(base);
  setBackground(QBrush(base));
  axes_.ApplyColours(palette(), font());
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

void CurveChart::resizeEvent(QResizeEvent* event) {
  if (wanted_.squareDecades) {
    // Before the plot draws itself, which it does here.
    setViewport(rect());
    updateLayout();
    userMovedView_ ? axes_.KeepSquare(wanted_) : FitRanges();
  }
  QCustomPlot::resizeEvent(event);
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

#include "editor/widgets/chart/crosshair.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/text_box.h"

namespace zentab::editor {
namespace {

constexpr double kSnap = 10.0;   // logical pixels from the pointer to a point
constexpr int kStep = 5;         // logical pixels of an arrow key
constexpr int kBeside = 14;      // from the pointer to the box
constexpr double kClear = 10.0;  // around a point that no box may cover
constexpr double kCrosshairContrast = 3.0;

QWidget* MakeLine(QWidget& parent) {
  auto* const line = new QWidget(&parent);
  line->setAttribute(Qt::WA_TransparentForMouseEvents);
  line->setAutoFillBackground(true);
  line->setBackgroundRole(QPalette::Window);
  line->hide();
  return line;
}

// How much a coordinate changes from one pixel to the next.
double StepAt(const QCPAxis& axis, double pixel) {
  return std::abs(axis.pixelToCoord(pixel + 0.5) - axis.pixelToCoord(pixel - 0.5));
}

}  // namespace

Crosshair::Crosshair(CurveChart& chart, Words words)
    : QObject(&chart),
      chart_(chart),
      words_(std::move(words)),
      upright_(MakeLine(chart)),
      level_(MakeLine(chart)),
      box_(new TextBox(&chart)) {
  upright_->setObjectName(QStringLiteral("CrossUpright"));
  level_->setObjectName(QStringLiteral("CrossLevel"));
  box_->setObjectName(QStringLiteral("CrossText"));
  chart.setMouseTracking(true);
  chart.installEventFilter(this);
  connect(&chart, &CurveChart::PaletteChanged, this, &Crosshair::ApplyColours);
  connect(&chart, &CurveChart::CurveShown, this, &Crosshair::Refresh);
  connect(&chart, &QCustomPlot::afterReplot, this, &Crosshair::Refresh);
  ApplyColours();
}

std::optional<Reading> Crosshair::Last() const {
  std::optional<Reading> last = reading_;
  if (last && !last->time) last->time = time_;
  return last;
}

void Crosshair::Refresh() {
  if (!upright_->isHidden()) {
    PlaceParts({chart_.xAxis->coordToPixel(load_), chart_.yAxis->coordToPixel(time_)});
  }
}

void Crosshair::StandAt(const QPointF& pointer) {
  if (!chart_.axisRect()->rect().contains(pointer.toPoint())) {
    Hide();
    return;
  }
  load_ = chart_.xAxis->pixelToCoord(pointer.x());
  time_ = chart_.yAxis->pixelToCoord(pointer.y());
  HoldTooltip(true);
  PlaceParts(pointer);
}

// The chart's tooltip would lie where the read-out stands.
void Crosshair::HoldTooltip(bool held) {
  if (held && !chart_.toolTip().isEmpty()) tooltip_ = chart_.toolTip();
  if (held == chart_.toolTip().isEmpty()) return;
  chart_.setToolTip(held ? QString() : tooltip_);
}

void Crosshair::Hide() {
  if (!tooltip_.isEmpty()) HoldTooltip(false);
  for (QWidget* const part : {upright_, level_, static_cast<QWidget*>(box_)}) part->hide();
  if (std::exchange(foundRow_, 0) != 0) Q_EMIT PointFound(0);
}

const ChartPoint* Crosshair::PointNear(const QPointF& pointer) const {
  const ChartPoint* nearest = nullptr;
  double least = kSnap;
  for (const ChartPoint& point : chart_.Curve().points) {
    const QLineF way(
        pointer, {chart_.xAxis->coordToPixel(point.load), chart_.yAxis->coordToPixel(point.time)});
    if (way.length() > least) continue;
    least = way.length();
    nearest = &point;
  }
  return nearest;
}

Reading Crosshair::ReadAt(const QPointF& pointer) const {
  const ChartPoint* point = PointNear(pointer);
  const double load = chart_.xAxis->pixelToCoord(pointer.x());
  const double time = chart_.yAxis->pixelToCoord(pointer.y());
  const std::optional<double> onCurve = TimeAt(chart_.Curve(), load, time, chart_.Kinds());
  // The pointer may be far above the point on whose place of the curve it stands.
  if (point == nullptr && onCurve) {
    point = PointNear({pointer.x(), chart_.yAxis->coordToPixel(*onCurve)});
  }
  if (point != nullptr) return {point->load, point->time, point->row, 0.0, 0.0};
  const double level = chart_.yAxis->coordToPixel(onCurve.value_or(time));
  return {load, onCurve, 0, StepAt(*chart_.xAxis, pointer.x()), StepAt(*chart_.yAxis, level)};
}

void Crosshair::PlaceParts(const QPointF& pointer) {
  const Reading reading = ReadAt(pointer);
  reading_ = reading;
  QList<QStringList> rows;
  for (const QString& line : words_(reading)) rows.append({line});
  box_->SetRows(rows);
  const QRect area = chart_.axisRect()->rect();
  const QPointF point(chart_.xAxis->coordToPixel(reading.load),
                      chart_.yAxis->coordToPixel(reading.time.value_or(time_)));
  upright_->setGeometry(static_cast<int>(point.x()), area.top(), 1, area.height());
  level_->setGeometry(area.left(), static_cast<int>(point.y()), area.width(), 1);
  const bool isInView = area.contains(point.toPoint());
  upright_->setVisible(isInView);
  level_->setVisible(isInView && reading.time.has_value());
  PlaceBox(pointer, point);
  if (std::exchange(foundRow_, reading.row) != reading.row) Q_EMIT PointFound(reading.row);
}

// Beside the pointer, inside the chart, and not over the point that it speaks of.
void Crosshair::PlaceBox(const QPointF& pointer, const QPointF& point) {
  const QRectF area(chart_.rect());
  const QRectF kept(point - QPointF(kClear, kClear), QSizeF(2 * kClear, 2 * kClear));
  QRectF box(QPointF(), box_->size());
  const auto fits = [&] { return area.contains(box) && !box.intersects(kept); };
  for (const QPointF& anchor : {pointer, point}) {
    const double right = anchor.x() + kBeside;
    const double left = anchor.x() - kBeside - box.width();
    const double above = anchor.y() - kBeside - box.height();
    const double below = anchor.y() + kBeside;
    for (const QPointF& corner : {QPointF(right, above), QPointF(right, below),
                                  QPointF(left, above), QPointF(left, below)}) {
      box.moveTopLeft(corner);
      if (!fits()) continue;
      box_->move(corner.toPoint());
      box_->show();
      box_->raise();
      return;
    }
  }
  // A chart that small has no room for it.
  box_->hide();
}

std::optional<QPointF> Crosshair::Stepped(int pixels) const {
  const QRect area = chart_.axisRect()->rect();
  const double from = upright_->isHidden() ? area.center().x() : chart_.xAxis->coordToPixel(load_);
  const double x = std::clamp(from + pixels, double(area.left()), double(area.right()));
  const double load = chart_.xAxis->pixelToCoord(x);
  const double time = TimeAt(chart_.Curve(), load, time_, chart_.Kinds()).value_or(time_);
  return QPointF(
      x, std::clamp(chart_.yAxis->coordToPixel(time), double(area.top()), double(area.bottom())));
}

// From the point where it stands, or from its load, to the point so many further; the first and
// last one with more than there are.
std::optional<QPointF> Crosshair::NextPoint(int step) const {
  const std::vector<ChartPoint>& points = chart_.Curve().points;
  if (points.empty()) return std::nullopt;
  const int last = static_cast<int>(points.size()) - 1;
  int place = step > 0 ? -1 : last + 1;
  for (int at = 0; at <= last; ++at) {
    const ChartPoint& point = points[static_cast<std::size_t>(at)];
    if (foundRow_ != 0 ? point.row == foundRow_ : !upright_->isHidden() && point.load < load_) {
      place = step < 0 && foundRow_ == 0 ? at + 1 : at;
    }
  }
  const auto& point = points[static_cast<std::size_t>(std::clamp(place + step, 0, last))];
  return QPointF(chart_.xAxis->coordToPixel(point.load), chart_.yAxis->coordToPixel(point.time));
}

bool Crosshair::OnKey(const QKeyEvent& event) {
  constexpr int kAll = kLastRow;
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool isFine = modifiers == Qt::ShiftModifier;
  if (modifiers != Qt::NoModifier && !isFine) return false;
  const int pixels = isFine ? 1 : kStep;
  std::optional<QPointF> place;
  switch (event.key()) {
    case Qt::Key_Left:
      place = Stepped(-pixels);
      break;
    case Qt::Key_Right:
      place = Stepped(pixels);
      break;
    case Qt::Key_Up:
      place = NextPoint(-1);
      break;
    case Qt::Key_Down:
      place = NextPoint(1);
      break;
    case Qt::Key_Home:
      place = NextPoint(-kAll);
      break;
    case Qt::Key_End:
      place = NextPoint(kAll);
      break;
    case Qt::Key_Escape:
      if (upright_->isHidden()) return false;
      Hide();
      return true;
    default:
      return false;
  }
  if (!place) return true;
  StandAt(*place);
  if (reading_) Q_EMIT Said(words_(*reading_).join(QStringLiteral(", ")));
  return true;
}

void Crosshair::ApplyColours() {
  const QPalette& colours = chart_.palette();
  const QColor line =
      LineOn(colours.color(QPalette::Base), colours.color(QPalette::Text), kCrosshairContrast);
  for (QWidget* const part : {upright_, level_}) {
    QPalette own = colours;
    own.setColor(QPalette::Window, line);
    part->setPalette(own);
  }
}

bool Crosshair::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      StandAt(static_cast<QMouseEvent*>(event)->position());
      break;
    case QEvent::Leave:
    case QEvent::FocusOut:
    case QEvent::Hide:
      Hide();
      break;
    case QEvent::KeyPress:
      if (OnKey(*static_cast<QKeyEvent*>(event))) return true;
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace zentab::editor

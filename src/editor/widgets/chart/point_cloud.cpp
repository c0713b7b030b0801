#include "editor/widgets/chart/point_cloud.h"

#include <cmath>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::editor {
namespace {

constexpr double kMeasuredContrast = 2.2;  // seen, but behind everything else
constexpr int kUsualDot = 2;               // logical pixels
constexpr int kLargeDot = 4;               // of points that are few

// The pixel of a coordinate. Neighbouring points mostly share one: the logarithm of an axis is
// taken only where they do not.
class PixelFinder {
 public:
  PixelFinder(const QCPAxis& axis, double first, double ratio, int count)
      : axis_(axis), first_(first), ratio_(ratio), count_(count) {}

  /// -1 outside of the picture.
  int Of(double coordinate) {
    if (coordinate >= low_ && coordinate < high_) return pixel_;
    const double place = std::floor((axis_.coordToPixel(coordinate) - first_) * ratio_);
    if (!(place >= 0.0 && place < count_)) return -1;
    pixel_ = static_cast<int>(place);
    const double one = axis_.pixelToCoord(first_ + place / ratio_);
    const double other = axis_.pixelToCoord(first_ + (place + 1.0) / ratio_);
    low_ = std::min(one, other);
    high_ = std::max(one, other);
    return pixel_;
  }

 private:
  const QCPAxis& axis_;
  double first_;
  double ratio_;
  int count_;
  int pixel_ = -1;
  double low_ = 0.0;
  double high_ = 0.0;
};

}  // namespace

PointCloud::PointCloud(CurveChart& chart) : QCPLayerable(&chart), chart_(chart) {
  chart.addLayer(QStringLiteral("cloud"), chart.layer(QStringLiteral("main")),
                 QCustomPlot::limBelow);
  setLayer(QStringLiteral("cloud"));
  connect(&chart, &CurveChart::PaletteChanged, this, [this] { shown_ = {}; });
}

void PointCloud::Show(Kind kind, Points points) {
  Dots& dots = dots_[static_cast<std::size_t>(kind)];
  dots = {std::move(points), {}};
  if (kind == Kind::Measured) {
    chart_.SetExtent(this, dots.points ? ExtentOf(*dots.points) : std::nullopt);
  } else {
    chart_.replot(QCustomPlot::rpQueuedReplot);
  }
}

void PointCloud::Hide() {
  dots_ = {};
  Show(Kind::Measured, nullptr);
}

QColor PointCloud::ColourOf(Kind kind, const QColor& background, const QColor& text) {
  switch (kind) {
    case Kind::Measured:
      return LineOn(background, text, kMeasuredContrast);
    case Kind::Shaped:
      return ReadableOn(QColor(0x1B, 0x7F, 0x5A), background);
    case Kind::Removed:
      break;
  }
  return FailureOn(background);
}

QRect PointCloud::clipRect() const { return chart_.axisRect()->rect(); }

void PointCloud::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(false);
}

void PointCloud::DrawDots(QImage& picture, const std::vector<QPointF>& points, const QColor& colour,
                          int size) const {
  const ChartView& view = shown_;
  const int width = picture.width();
  const int height = picture.height();
  const QRgb dot = colour.rgb();
  PixelFinder columns(*chart_.xAxis, view.area.left(), view.ratio, width);
  PixelFinder rows(*chart_.yAxis, view.area.top(), view.ratio, height);
  std::vector<bool> isTaken(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  auto* const bits = reinterpret_cast<QRgb*>(picture.bits());
  const auto lineLength = static_cast<std::ptrdiff_t>(picture.bytesPerLine() / sizeof(QRgb));
  for (const QPointF& point : points) {
    const int column = columns.Of(point.x());
    const int row = column < 0 ? -1 : rows.Of(point.y());
    if (row < 0) continue;
    const auto place = static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(column);
    if (isTaken[place]) continue;
    isTaken[place] = true;
    const int left = std::max(column - size / 2, 0);
    const int right = std::min(left + size, width);
    const int top = std::max(row - size / 2, 0);
    const int bottom = std::min(top + size, height);
    for (int line = top; line < bottom; ++line) {
      std::fill(bits + line * lineLength + left, bits + line * lineLength + right, dot);
    }
  }
}

QImage PointCloud::PictureOf(Kind kind, const std::vector<QPointF>& points) const {
  QImage picture(shown_.area.size() * shown_.ratio, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  const QPalette& palette = chart_.palette();
  const QColor colour =
      ColourOf(kind, palette.color(QPalette::Base), palette.color(QPalette::Text));
  const bool areFew = points.size() < static_cast<std::size_t>(picture.width());
  const int size = areFew ? kLargeDot : kUsualDot;
  DrawDots(picture, points, colour, static_cast<int>(std::lround(size * shown_.ratio)));
  picture.setDevicePixelRatio(shown_.ratio);
  return picture;
}

void PointCloud::draw(QCPPainter* painter) {
  const ChartView view = ViewOf(chart_, *painter);
  const bool isOther = !(view == shown_);
  shown_ = view;
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    Dots& dots = dots_[kind];
    if (!dots.points) continue;
    if (isOther || dots.picture.isNull()) {
      dots.picture = PictureOf(static_cast<Kind>(kind), *dots.points);
    }
    painter->drawImage(view.area.topLeft(), dots.picture);
  }
}

}  // namespace zentab::editor

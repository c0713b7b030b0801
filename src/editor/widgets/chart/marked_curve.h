#pragma once

#include <qcustomplot.h>

#include <array>

namespace zentab::editor {

/// A curve with a round marker on each of its points, drawn where the axes have them at any
/// resolution of the screen. The plot's own markers made of a picture lie beside their points
/// wherever a logical pixel is more than one of the device, and its lines half a logical pixel. In
/// pictures (QCPPainter::pmNoCaching, pmVectorized) they are circles, and nothing is moved.
class MarkedCurve : public QCPCurve {
 public:
  /// The marker's diameter in logical pixels.
  static constexpr double kMarkerSize = 6.0;

  MarkedCurve(QCPAxis* keyAxis, QCPAxis* valueAxis);

  void SetColours(const QColor& line, const QColor& fill, Qt::PenStyle style = Qt::SolidLine);

 protected:
  void draw(QCPPainter* painter) override;
  void drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& points,
                       const QCPScatterStyle& style) const override;

 private:
  static constexpr int kParts = 4;  // of a pixel of the device, between which a marker can lie

  void SetMarkerPen(QPainter& painter) const;
  [[nodiscard]] const QPixmap& Marker(int right, int down) const;

  QColor ring_;
  QColor fill_;
  mutable double pixelRatio_ = 0.0;
  mutable std::array<QPixmap, std::size_t{kParts} * kParts> markers_;  // at pixelRatio_
};

}  // namespace zentab::editor

#pragma once

#include <qcustomplot.h>

#include "editor/chart_curve.h"

namespace zentab::editor {

class MarkedCurve;
class PointMark;

/// The chart `MSChart1`: trip time against load level, with a line and markers. Both axes are
/// logarithmic when that is wanted and every point is positive. The wheel zooms, dragging moves,
/// a double-click shows the whole curve again.
class CurveChart : public QCustomPlot {
  Q_OBJECT

 public:
  explicit CurveChart(QWidget* parent);

  /// Shows a curve; hides the chart when it has fewer than two rows. A part of the chart that the
  /// user zoomed into stays in view while the chart is shown and any of the curve lies in it.
  void ShowCurve(const ChartCurve& curve);

  /// Brings the whole curve into view.
  void Fit();

  void SetAxisTitles(const QString& load, const QString& time);
  void SetLogarithmicWanted(bool wanted);
  /// The decimal separator of the axes' numbers.
  void SetDecimalSeparator(const QString& separator);

  /// Fills the dot of a grid row's point, where the curve has one.
  void MarkRow(int row);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void SetCurveData();
  void FitRanges();
  void ApplyScaleType();
  void ApplyPalette();
  [[nodiscard]] QPointF PlaceOf(const ChartPoint& point) const;
  [[nodiscard]] bool IsInView() const;
  [[nodiscard]] QRect ChangedArea(const ChartCurve& before) const;
  [[nodiscard]] QRectF AreaAround(const ChartCurve& curve, std::size_t point) const;
  void PlaceMark();

  MarkedCurve* line_;
  PointMark* mark_;
  QSharedPointer<QCPAxisTicker> linearTicker_;
  QSharedPointer<QCPAxisTicker> logTicker_;
  ChartCurve curve_;
  int markedRow_ = 1;
  bool logarithmicWanted_ = true;
  bool userMovedView_ = false;
  bool buffersFresh_ = false;  // the plot's own picture shows the curve
};

}  // namespace zentab::editor

#pragma once

#include <qcustomplot.h>

#include <map>
#include <optional>

#include "editor/chart_curve.h"
#include "editor/widgets/chart/plot_axes.h"

namespace zentab::editor {

class MarkedCurve;
class PointMark;

/// The extent of points of load and time; nothing without points.
[[nodiscard]] std::optional<Extent> ExtentOf(const std::vector<QPointF>& points);

/// The chart `MSChart1`: trip time against load level, with a line and markers. The wheel zooms,
/// dragging moves, a double-click shows the whole curve again.
class CurveChart : public QCustomPlot {
  Q_OBJECT

 public:
  explicit CurveChart(QWidget* parent);

  /// Shows a curve; hides the chart when it has fewer than two rows. A part of the chart that the
  /// user zoomed into stays in view while the chart is shown and any of the curve lies in it.
  void ShowCurve(const ChartCurve& curve);

  /// What else is drawn here and belongs into the view of the whole: its extent, nothing once it is
  /// gone. The chart is shown as long as it has anything to show.
  void SetExtent(const QObject* drawn, const std::optional<Extent>& extent);

  /// Brings the whole curve into view, and what else is drawn.
  void Fit();

  /// While it is held the view stays, whatever curve is shown.
  void HoldView(bool held);

  [[nodiscard]] const ChartCurve& Curve() const { return curve_; }
  /// Whether both axes are logarithmic.
  [[nodiscard]] bool IsLogarithmic() const { return axes_.Kinds().AreLogarithmic(); }
  [[nodiscard]] AxisKinds Kinds() const { return axes_.Kinds(); }

  void SetAxisTitles(const QString& load, const QString& time);
  /// How the axes are to be; brings everything into view on them.
  void SetAxes(const ViewAxes& wanted);
  /// The decimal separator of the axes' numbers.
  void SetDecimalSeparator(const QString& separator);

  /// Fills the dot of a grid row's point, where the curve has one.
  void MarkRow(int row);

 Q_SIGNALS:
  /// The colours of what is drawn are to be chosen anew.
  void PaletteChanged();
  /// Curve() is another, and drawn on its axes.
  void CurveShown();

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void ShowChange(const ChartCurve& before);
  void SetCurveData();
  [[nodiscard]] std::optional<Extent> WholeExtent() const;
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
  PlotAxes axes_;
  ViewAxes wanted_;
  ChartCurve curve_;
  std::map<const QObject*, Extent> extents_;  // of what else is drawn
  int markedRow_ = 1;
  bool userMovedView_ = false;
  bool isViewHeld_ = false;
  bool buffersFresh_ = false;   // the plot's own picture shows the curve
  bool drawsStraight_ = false;  // to the window, the next time
};

}  // namespace zentab::editor

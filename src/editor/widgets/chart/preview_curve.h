#pragma once

#include <QObject>
#include <QPointF>
#include <vector>

#include "editor/chart_curve.h"

namespace zentab::editor {

class CurveChart;
class MarkedCurve;

/// A second curve in the chart, dashed and in a colour of its own: what the table would be.
class PreviewCurve : public QObject {
  Q_OBJECT

 public:
  explicit PreviewCurve(CurveChart& chart);

  /// Shows points of load and time, in the units of the chart's axes; none hide it.
  void Show(const std::vector<QPointF>& points);
  void Show(const ChartCurve& curve);
  void Hide() { Show(std::vector<QPointF>()); }

 private:
  void ApplyPalette();

  CurveChart& chart_;
  MarkedCurve* line_;
};

}  // namespace zentab::editor

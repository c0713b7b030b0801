#pragma once

#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {

/// What a picture of something in the chart was made for: another one needs another picture.
struct ChartView {
  QCPRange loads;
  QCPRange times;
  QRect area;  // of the axes, in logical pixels
  double ratio = 0.0;
  AxisKinds kinds;

  friend bool operator==(const ChartView&, const ChartView&) = default;
};

/// The view that a painter of the chart draws now.
[[nodiscard]] inline ChartView ViewOf(const CurveChart& chart, const QCPPainter& painter) {
  return {chart.xAxis->range(), chart.yAxis->range(), chart.axisRect()->rect(),
          painter.device()->devicePixelRatioF(), chart.Kinds()};
}

}  // namespace zentab::editor

#pragma once

#include <vector>

#include "editor/overlay_curve.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {

/// A curve of differences as it is drawn.
struct DrawnDifference {
  QPen pen;
  std::vector<PercentAt> places;
};

/// The panel under the chart: differences in per cent, on the chart's own load axis.
class DifferencePanel : public QCustomPlot {
  Q_OBJECT

 public:
  DifferencePanel(CurveChart& chart, QWidget* parent);

  void Show(const std::vector<DrawnDifference>& differences);
  void SetTitle(const QString& title);

 private:
  void FollowChart();
  void ApplyColours();

  CurveChart& chart_;
};

}  // namespace zentab::editor

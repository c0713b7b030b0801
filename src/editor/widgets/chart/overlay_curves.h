#pragma once

#include <QPixmap>
#include <vector>

#include "editor/widgets/chart/chart_view.h"

namespace zentab::editor {

/// A further curve as it is drawn.
struct DrawnOverlay {
  int number = 0;  // of its pen
  ChartCurve curve;
};

/// The further curves in the chart, under the grid's own. On a screen they are drawn once for a
/// view, and put down as a picture after that: whatever moves above them costs nothing of them.
class OverlayCurves : public QCPLayerable {
  Q_OBJECT

 public:
  explicit OverlayCurves(CurveChart& chart);

  void Show(std::vector<DrawnOverlay> overlays);

 protected:
  [[nodiscard]] QRect clipRect() const override;
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;

 private:
  void DrawLines(QPainter& painter) const;

  CurveChart& chart_;
  std::vector<DrawnOverlay> overlays_;
  QPixmap picture_;
  ChartView shown_;  // in the picture
};

}  // namespace zentab::editor

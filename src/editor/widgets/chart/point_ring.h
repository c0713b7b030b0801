#pragma once

#include <QWidget>

namespace zentab::editor {

class CurveChart;

/// The ring around the point of the curve that is lit up: a small window of its own, as the dot on
/// the grid's current point.
class PointRing : public QWidget {
 public:
  explicit PointRing(CurveChart& chart);

  /// Lights up the point of a grid row, none for 0.
  void Light(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Place();

  CurveChart& chart_;
  int row_ = 0;
  QPointF middle_;
};

}  // namespace zentab::editor

#pragma once

#include <QWidget>

#include "editor/widgets/curve_chart.h"

class QPushButton;

namespace zentab::app {

/// The right of the main window: the chart with the test-set commands and the time-test fields in
/// a strip below.
class ChartPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChartPanel(QWidget* parent);

  editor::CurveChart* chart = nullptr;
  QPushButton* command5 = nullptr;  // Set GRH

 private:
  [[nodiscard]] QWidget* BuildChartPlace();
  [[nodiscard]] QWidget* BuildStrip();
};

}  // namespace zentab::app

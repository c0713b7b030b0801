#pragma once

#include <QWidget>

#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/curve_legend.h"
#include "editor/widgets/chart/difference_panel.h"

class QGridLayout;
class QLineEdit;
class QPushButton;
class QSplitter;

namespace zentab::app {

/// The right of the main window: the chart with the test-set commands and the time-test fields in
/// a strip below.
class ChartPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChartPanel(QWidget* parent);

  /// Puts a panel over the hint in the place of the chart, which covers both while it is shown.
  void PutInEmptyChart(QWidget* panel);
  /// Puts a panel between the chart and the strip.
  void AddBelowChart(QWidget* panel);

  editor::CurveChart* chart = nullptr;
  editor::DifferencePanel* differences = nullptr;
  editor::CurveLegend* legend = nullptr;
  QPushButton* command5 = nullptr;   // Set GRH
  QPushButton* command6 = nullptr;   // Import GRH
  QPushButton* command10 = nullptr;  // Import time test
  QPushButton* commandPreview = nullptr;
  QLineEdit* text4 = nullptr;  // difference type
  QLineEdit* text5 = nullptr;  // filter type
  QLineEdit* text6 = nullptr;  // width of the mean

 private:
  [[nodiscard]] QWidget* BuildChartPlace();
  [[nodiscard]] QWidget* BuildStrip();

  QSplitter* split_;
  QGridLayout* place_ = nullptr;
};

}  // namespace zentab::app

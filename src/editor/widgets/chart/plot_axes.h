#pragma once

#include <qcustomplot.h>

#include <optional>

#include "editor/chart_axes.h"

namespace zentab::editor {

/// The loads and times that something takes up in the chart.
struct Extent {
  Range load;
  Range time;

  friend bool operator==(const Extent&, const Extent&) = default;
};

/// The axes of a chart: of which kind they are, what range they have, how they look.
class PlotAxes {
 public:
  explicit PlotAxes(QCustomPlot& plot);

  /// An axis is logarithmic where that is wanted and the extent allows; see PossibleKinds. True
  /// when that has changed an axis.
  bool SetKinds(const ViewAxes& wanted, const std::optional<Extent>& whole);
  /// Shows the limits given by hand, else the whole extent with a margin. Limits that leave all of
  /// the extent out are passed over.
  void Fit(const ViewAxes& wanted, const std::optional<Extent>& whole);
  /// Makes the decades of one length again after the plot has changed its size, around the middle.
  void KeepSquare(const ViewAxes& wanted);
  void ApplyColours(const QPalette& colours, const QFont& font);

  [[nodiscard]] AxisKinds Kinds() const;

 private:
  void MakeSquare();

  QCustomPlot& plot_;
  QCPAxis& load_;
  QCPAxis& time_;
  QSharedPointer<QCPAxisTicker> linearTicker_;
  QSharedPointer<QCPAxisTicker> logTicker_;
  double loadFactor_ = 0.0;  // of the load axis' ticker; 0: it has none yet
};

}  // namespace zentab::editor

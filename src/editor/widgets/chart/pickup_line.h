#pragma once

#include <QObject>
#include <optional>

class QCPItemStraightLine;
class QCPItemText;

namespace zentab::editor {

class CurveChart;

/// The upright line in the chart at the pickup value, with its name beside its upper end.
class PickupLine : public QObject {
 public:
  explicit PickupLine(CurveChart& chart);

  /// Shows it at a load, in the grid's unit; nothing hides it.
  void Show(std::optional<double> load, const QString& name);

 private:
  void ApplyColours();

  CurveChart& chart_;
  QCPItemStraightLine* line_;
  QCPItemText* name_;
};

}  // namespace zentab::editor

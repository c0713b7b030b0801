#pragma once

#include <QObject>
#include <vector>

class QCPCurve;
class QCPGraph;

namespace zentab::editor {

class CurveChart;

/// A band around a reference in the chart, and marks on the points that it does not hold.
class ToleranceBand : public QObject {
  Q_OBJECT

 public:
  /// In the units of the chart's axes.
  struct Place {
    double load;
    double nominal;
    double lower;
    double upper;
  };
  struct Mark {
    double load;
    double time;
    bool isOutside;  // of the reference; else beyond its limits
  };

  explicit ToleranceBand(CurveChart& chart);

  /// `places` by increasing loads; none hide the band.
  void Show(const std::vector<Place>& places, const std::vector<Mark>& marks);
  void Hide() { Show({}, {}); }

 private:
  void ApplyPalette();

  CurveChart& chart_;
  QCPGraph* upper_;
  QCPGraph* lower_;
  QCPGraph* nominal_;
  QCPCurve* failed_;
  QCPCurve* outside_;
};

}  // namespace zentab::editor

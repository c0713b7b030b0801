#pragma once

#include <QObject>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

#include "editor/chart_reading.h"

class QWidget;

namespace zentab::editor {

class CurveChart;
class TextBox;

/// The two markers A and B that stay where they were pinned while the curve changes, and a box in
/// the corner with what they show.
class PinnedMarkers : public QObject {
 public:
  enum class Which { A, B };
  using Words = std::function<QList<QStringList>(const std::optional<Reading>& a,
                                                 const std::optional<Reading>& b)>;

  PinnedMarkers(CurveChart& chart, Words words);

  /// Puts a marker at a place that has a time.
  void Pin(Which which, const Reading& place);
  void Clear();
  /// The words for the same places are others.
  void Refresh();

 private:
  struct Marker {
    QWidget* flag = nullptr;
    std::optional<Reading> place;
  };

  void Place();

  CurveChart& chart_;
  Words words_;
  std::array<Marker, 2> markers_;  // by Which
  TextBox* box_;
};

}  // namespace zentab::editor

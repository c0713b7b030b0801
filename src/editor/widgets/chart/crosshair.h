#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>

#include "editor/chart_reading.h"

class QKeyEvent;
class QPointF;
class QWidget;

namespace zentab::editor {

class CurveChart;
class TextBox;

/// The crosshair of the chart: it stands on the curve at the pointer's load, or at that of the
/// arrow keys, and says what is read there. Near a point of the curve it stands on that. Left and
/// Right go a few pixels (with Shift one), Up and Down from point to point, Home and End to the
/// first and last one; Escape hides it. Its parts are windows of their own: moving it draws
/// nothing of the chart anew.
class Crosshair : public QObject {
  Q_OBJECT

 public:
  using Words = std::function<QStringList(const Reading&)>;

  /// `words` says what is shown of a reading, line by line.
  Crosshair(CurveChart& chart, Words words);

  /// Where it stands, or stood last. With a time in any case: beside the curve that of the pointer.
  [[nodiscard]] std::optional<Reading> Last() const;

  /// Reads the same place again: the curve, its axes or units are others.
  void Refresh();

 Q_SIGNALS:
  /// It has come to stand on another row's point (1..26), or on none (0).
  void PointFound(int row);
  /// The keys have moved it: what it says, for a screen reader.
  void Said(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void StandAt(const QPointF& pointer);
  void Hide();
  void HoldTooltip(bool held);
  [[nodiscard]] bool OnKey(const QKeyEvent& event);
  [[nodiscard]] std::optional<QPointF> Stepped(int pixels) const;
  [[nodiscard]] std::optional<QPointF> NextPoint(int step) const;
  [[nodiscard]] Reading ReadAt(const QPointF& pointer) const;
  [[nodiscard]] const ChartPoint* PointNear(const QPointF& pointer) const;
  void PlaceParts(const QPointF& pointer);
  void PlaceBox(const QPointF& pointer, const QPointF& point);
  void ApplyColours();

  CurveChart& chart_;
  Words words_;
  QWidget* upright_;
  QWidget* level_;
  TextBox* box_;
  std::optional<Reading> reading_;  // where it stands, or stood last
  double load_ = 0.0;               // of the pointer, which stays with the axes
  double time_ = 0.0;
  int foundRow_ = 0;
  QString tooltip_;  // of the chart, while it would cover what is read
};

}  // namespace zentab::editor

#pragma once

#include <QObject>
#include <QPointF>
#include <optional>

#include "editor/point_edits.h"

class QKeyEvent;
class QMouseEvent;

namespace zentab::editor {

class CurveChart;

/// Takes the points of the curve by hand: one that is pressed on is picked and can be dragged, with
/// Shift to one side or up and down only; a double-click on the line wants a point there, Delete
/// wants the picked one removed. It changes nothing itself. While a point is dragged the view
/// stays, and no key but Escape counts.
class PointHand : public QObject {
  Q_OBJECT

 public:
  explicit PointHand(CurveChart& chart);

 Q_SIGNALS:
  /// A point was pressed on.
  void Picked(int row);
  /// The picked point is about to be dragged.
  void DragBegun(int row);
  /// It is dragged to a place, by those of its numbers alone that are moved.
  void Dragged(int row, const zentab::editor::ScreenPlace& place,
               zentab::editor::MovedNumbers moved);
  void DragEnded();
  /// Escape: the point goes back to where it was.
  void DragAbandoned();
  /// A point is wanted on the line that begins at the point of a row.
  void PointWanted(int row, const zentab::editor::ScreenPlace& place);
  /// The picked point is to be removed.
  void RemovalWanted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool Press(const QMouseEvent& event);
  [[nodiscard]] bool Drag(const QMouseEvent& event);
  [[nodiscard]] bool Release();
  void LetGo(void (PointHand::*signal)());
  [[nodiscard]] bool DoubleClick(const QMouseEvent& event);
  [[nodiscard]] bool OnKey(const QKeyEvent& event);
  [[nodiscard]] bool OnAnyKey(QKeyEvent& event);
  [[nodiscard]] ScreenPlace PlaceAt(const QPointF& pixel) const;
  [[nodiscard]] QPointF PixelOf(const ChartPoint& point) const;
  void ShowCursor(const QPointF& pixel) const;

  /// The point that the mouse holds, by its row.
  struct Held {
    int row;
    QPointF pressed;  // where the mouse was pressed
    QPointF point;    // where the point was then
    bool isDragged = false;
  };

  CurveChart& chart_;
  std::optional<Held> held_;
};

}  // namespace zentab::editor

#pragma once

#include <QObject>
#include <optional>
#include <utility>

#include "app/session.h"
#include "editor/edit_step.h"
#include "editor/point_edits.h"

namespace zentab::editor {
class CurveChart;
class CurveGridView;
}  // namespace zentab::editor

namespace zentab::app {

/// Lets the points of the table be moved, added and removed by hand in the chart; each is one step
/// of the history. The point that is picked is the grid's current row.
class PointHandController : public QObject {
  Q_OBJECT

 public:
  PointHandController(Session& session, editor::CurveChart& chart, editor::CurveGridView& grid);

 Q_SIGNALS:
  /// The table is about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// What was said of the command before is over.
  void CommandBegun();
  /// The grid holds other points; the hand may still be moving one.
  void PointsChanged();
  /// The hand has let go of points that it changed.
  void TableChanged();
  /// Nothing was changed; `text` says why, in one line.
  void Failed(const QString& text);

 private:
  void Begin();
  void Pick(int row);
  void Move(int row, const editor::ScreenPlace& place, editor::MovedNumbers moved);
  void End();
  void Abandon();
  void Add(int row, const editor::ScreenPlace& place);
  void RemovePicked();

  Session& session_;
  editor::CurveChart& chart_;
  editor::CurveGridView& grid_;
  std::optional<editor::WorkingTable> before_;  // the drag that goes on, once it has moved a point
};

}  // namespace zentab::app

#include "app/widgets/chart/point_hand_controller.h"

#include <algorithm>

#include "editor/row_tools.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/point_hand.h"
#include "editor/widgets/curve_grid_view.h"

namespace zentab::app {

using editor::EditStep;
using editor::PointHand;
using editor::ToolOutcome;

PointHandController::PointHandController(Session& session, editor::CurveChart& chart,
                                         editor::CurveGridView& grid)
    : QObject(&chart), session_(session), chart_(chart), grid_(grid) {
  auto* const hand = new PointHand(chart);
  connect(hand, &PointHand::Picked, this, &PointHandController::Pick);
  connect(hand, &PointHand::DragBegun, this, [this] { before_.reset(); });
  connect(hand, &PointHand::Dragged, this, &PointHandController::Move);
  connect(hand, &PointHand::DragEnded, this, &PointHandController::End);
  connect(hand, &PointHand::DragAbandoned, this, &PointHandController::Abandon);
  connect(hand, &PointHand::PointWanted, this, &PointHandController::Add);
  connect(hand, &PointHand::RemovalWanted, this, &PointHandController::RemovePicked);
}

void PointHandController::Begin() {
  Q_EMIT CommandBegun();
  grid_.CloseEditor();
}

void PointHandController::Pick(int row) {
  Begin();
  const int column = std::max(session_.table.grid.Col(), editor::kLoadColumn);
  const QModelIndex cell =
      grid_.model()->index(row - editor::kFirstRow, column - editor::kLoadColumn);
  grid_.setCurrentIndex(cell);
  grid_.scrollTo(cell);
}

void PointHandController::Move(int row, const editor::ScreenPlace& place,
                               editor::MovedNumbers moved) {
  editor::WorkingTable table = session_.table;
  const ToolOutcome outcome =
      editor::MovePoint(table, row, place, moved, session_.localeDecimalSeparator);
  if (outcome != ToolOutcome::Done) return;
  if (!before_) before_ = session_.table;
  session_.table = table;
  Q_EMIT PointsChanged();
}

// Only a move that is not abandoned becomes a step of the history, which remembers what was before.
void PointHandController::End() {
  if (!before_) return;
  std::swap(session_.table, *before_);
  Q_EMIT AboutToChange(EditStep::MovePoint);
  session_.table = *std::exchange(before_, std::nullopt);
  Q_EMIT TableChanged();
}

void PointHandController::Abandon() {
  if (!before_) return;
  session_.table = *std::exchange(before_, std::nullopt);
  Q_EMIT PointsChanged();
}

void PointHandController::Add(int row, const editor::ScreenPlace& place) {
  Begin();
  editor::WorkingTable table = session_.table;
  const ToolOutcome outcome =
      editor::AddPointBehind(table, row, place, session_.localeDecimalSeparator);
  if (outcome != ToolOutcome::Done) {
    Q_EMIT Failed(QString::fromStdString(session_.texts.tools.noRoom));
    return;
  }
  Q_EMIT AboutToChange(EditStep::AddPoint);
  session_.table = table;
  Q_EMIT PointsChanged();
  Q_EMIT TableChanged();
  Pick(row + 1);
}

void PointHandController::RemovePicked() {
  const int row = session_.table.grid.Row();
  const auto& points = chart_.Curve().points;
  const bool isPoint = std::any_of(points.begin(), points.end(),
                                   [row](const auto& point) { return point.row == row; });
  if (!isPoint) return;
  Begin();
  editor::WorkingTable table = session_.table;
  if (editor::DeleteRows(table, {row, row}) != ToolOutcome::Done) return;
  Q_EMIT AboutToChange(EditStep::DeleteRows);
  session_.table = table;
  Q_EMIT PointsChanged();
  Q_EMIT TableChanged();
}

}  // namespace zentab::app

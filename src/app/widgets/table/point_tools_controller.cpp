#include "app/widgets/table/point_tools_controller.h"

#include <QItemSelectionModel>
#include <cmath>

#include "app/widgets/table/table_panel.h"
#include "editor/number_tools.h"
#include "editor/row_tools.h"

namespace zentab::app {
namespace {

using editor::CellArea;
using editor::EditStep;
using editor::RowSpan;
using editor::ToolOutcome;

constexpr int kMostDecimals = 15;
constexpr int kUsualDecimals = 3;

// Who has only gone to a cell has not chosen it from among the others.
CellArea WorkedOn(const CellArea& selected) {
  if (!selected.IsOneCell()) return selected;
  return {editor::kFirstRow, editor::kLoadColumn, editor::kLastRow, editor::kTimeColumn};
}

RowSpan SortedRows(const CellArea& selected) {
  if (selected.top == selected.bottom) return {};
  return {selected.top, selected.bottom};
}

CellArea ColumnOf(const CellArea& selected, int column) {
  const CellArea area = WorkedOn(selected);
  return {area.top, column, area.bottom, column};
}

bool IsWhole(double number) { return number == std::floor(number); }

}  // namespace

PointToolsController::PointToolsController(Session& session, TablePanel& panel,
                                           UserDialogs& dialogs)
    : QObject(&panel), session_(session), panel_(panel), dialogs_(dialogs) {}

void PointToolsController::Run(EditStep tool, const QString& title) {
  Q_EMIT CommandBegun();
  CellArea selected = panel_.grid->SelectedArea();
  const bool reopens = panel_.grid->IsCellOpen();
  double number = 0.0;
  if (std::optional<NumberQuestion> question = QuestionOf(tool, selected)) {
    question->title = title;
    if (const auto last = lastNumbers_.find(tool); last != lastNumbers_.end()) {
      question->number = last->second;
    }
    const std::optional<double> answer = dialogs_.AskNumber(*question);
    if (!answer) return;
    number = *answer;
    if (tool != EditStep::FillBetween) lastNumbers_[tool] = number;
  }
  panel_.grid->CloseEditor();
  Work work{session_.table, session_.modes};
  const ToolOutcome outcome = Apply(tool, selected, number, work);
  if (outcome == ToolOutcome::Done) {
    Q_EMIT AboutToChange(tool);
    const bool modesChanged = work.modes.absoluteValues != session_.modes.absoluteValues ||
                              work.modes.milliseconds != session_.modes.milliseconds;
    session_.table = work.table;
    session_.modes = work.modes;
    if (modesChanged) Q_EMIT ModesChanged();
    Q_EMIT TableChanged();
    const int moved = tool == EditStep::MoveRowsUp ? -1 : tool == EditStep::MoveRowsDown ? 1 : 0;
    selected.top += moved;
    selected.bottom += moved;
    if (moved != 0) Select(selected);
  } else {
    Q_EMIT Failed(QString::fromStdString(TextOf(outcome)));
  }
  if (reopens) panel_.grid->GridEdit(editor::kOpenWithText);
}

// A question whose answer could not be used is not asked.
std::optional<NumberQuestion> PointToolsController::QuestionOf(EditStep tool,
                                                               const CellArea& area) const {
  const texts::ToolTexts& texts = session_.texts.tools;
  const auto asked = [](const std::string& label, double number, NumberQuestion::Rule accepts) {
    return NumberQuestion{{}, QString::fromStdString(label), number, std::move(accepts)};
  };
  switch (tool) {
    case EditStep::ScaleLoads:
    case EditStep::ScaleTimes:
      return asked(texts.factor, 1.0, [](double factor) { return factor != 0.0; });
    case EditStep::ShiftLoads:
    case EditStep::ShiftTimes:
      return asked(texts.amount, 0.0, [](double) { return true; });
    case EditStep::RoundNumbers:
      return asked(texts.decimals, kUsualDecimals, [](double decimals) {
        return IsWhole(decimals) && decimals >= 0 && decimals <= kMostDecimals;
      });
    case EditStep::FillBetween: {
      const RowSpan ends = editor::PointsToFillBetween(session_.table.grid, {area.top, area.bottom},
                                                       session_.localeDecimalSeparator);
      if (ends.first == 0) return std::nullopt;
      const int gap = ends.last - ends.first - 1;
      return asked(texts.pointCount, gap > 0 ? gap : 1, [](double count) {
        return IsWhole(count) && count >= 1 && count <= editor::kLastRow - 2;
      });
    }
    default:
      return std::nullopt;
  }
}

ToolOutcome PointToolsController::Apply(EditStep tool, const CellArea& selected, double number,
                                        Work& work) const {
  const std::string& separator = session_.localeDecimalSeparator;
  switch (tool) {
    case EditStep::ScaleLoads:
    case EditStep::ScaleTimes: {
      const bool loads = tool == EditStep::ScaleLoads;
      const CellArea area = ColumnOf(selected, loads ? editor::kLoadColumn : editor::kTimeColumn);
      return editor::ScaleNumbers(work.table, area, number, separator);
    }
    case EditStep::ShiftLoads:
    case EditStep::ShiftTimes: {
      const bool loads = tool == EditStep::ShiftLoads;
      const CellArea area = ColumnOf(selected, loads ? editor::kLoadColumn : editor::kTimeColumn);
      return editor::ShiftNumbers(work.table, area, number, separator);
    }
    case EditStep::RoundNumbers:
      return editor::RoundNumbers(work.table, WorkedOn(selected), static_cast<int>(number),
                                  separator);
    case EditStep::ConvertLoads:
      return editor::ConvertLoads(work.table, work.modes, separator);
    case EditStep::ConvertTimes:
      return editor::ConvertTimes(work.table, work.modes, separator);
    case EditStep::FillBetween:
      return editor::FillBetween(work.table, {selected.top, selected.bottom},
                                 static_cast<int>(number), logarithmic_, separator);
    default:
      return ApplyToRows(tool, selected, work);
  }
}

ToolOutcome PointToolsController::ApplyToRows(EditStep tool, const CellArea& selected,
                                              Work& work) const {
  const RowSpan rows{selected.top, selected.bottom};
  switch (tool) {
    case EditStep::InsertRow:
      return editor::InsertRows(work.table, rows);
    case EditStep::DeleteRows:
      return editor::DeleteRows(work.table, rows);
    case EditStep::MoveRowsUp:
      return editor::MoveRowsUp(work.table, rows);
    case EditStep::MoveRowsDown:
      return editor::MoveRowsDown(work.table, rows);
    case EditStep::SortByLoad:
      return editor::SortByLoad(work.table, SortedRows(selected), session_.localeDecimalSeparator);
    case EditStep::Reverse:
      return editor::Reverse(work.table, SortedRows(selected));
    default:
      return ToolOutcome::NothingToDo;
  }
}

const std::string& PointToolsController::TextOf(ToolOutcome outcome) const {
  const texts::ToolTexts& texts = session_.texts.tools;
  switch (outcome) {
    case ToolOutcome::NoRoom:
      return texts.noRoom;
    case ToolOutcome::NoNumber:
      return texts.noNumber;
    case ToolOutcome::NoPickup:
      return texts.noPickup;
    case ToolOutcome::OutOfRange:
      return texts.outOfRange;
    case ToolOutcome::NoTwoPoints:
      return texts.noTwoPoints;
    case ToolOutcome::NotAdjacent:
      return texts.notAdjacent;
    case ToolOutcome::SameLoad:
      return texts.sameLoad;
    case ToolOutcome::Done:
    case ToolOutcome::NothingToDo:
      break;
  }
  return texts.nothingToDo;
}

void PointToolsController::Select(const CellArea& area) {
  const auto at = [this](int row, int column) {
    return panel_.grid->model()->index(row - editor::kFirstRow, column - editor::kLoadColumn);
  };
  const int column = session_.table.grid.Col();
  panel_.grid->setCurrentIndex(at(area.top, column));
  panel_.grid->selectionModel()->select(
      QItemSelection(at(area.top, area.left), at(area.bottom, area.right)),
      QItemSelectionModel::ClearAndSelect);
}

}  // namespace zentab::app

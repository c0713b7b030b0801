#include "editor/point_edits.h"

#include "editor/row_tools.h"
#include "editor/screen_numbers.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

// Without the zeros behind the last digit that says something.
std::string Written(double number, double step, std::string_view separator) {
  return texts::NumberText(RoundedTo(number, step), separator);
}

}  // namespace

ToolOutcome MovePoint(WorkingTable& table, int row, const ScreenPlace& place, MovedNumbers moved,
                      std::string_view localeDecimalSeparator) {
  const std::string load = moved.load ? Written(place.load, place.loadStep, localeDecimalSeparator)
                                      : table.grid.Cell(row, kLoadColumn);
  const std::string time = moved.time ? Written(place.time, place.timeStep, localeDecimalSeparator)
                                      : table.grid.Cell(row, kTimeColumn);
  if (load == table.grid.Cell(row, kLoadColumn) && time == table.grid.Cell(row, kTimeColumn)) {
    return ToolOutcome::NothingToDo;
  }
  table.grid.SetCell(row, kLoadColumn, load);
  table.grid.SetCell(row, kTimeColumn, time);
  table.tableModified = true;
  return ToolOutcome::Done;
}

ToolOutcome AddPointBehind(WorkingTable& table, int row, const ScreenPlace& place,
                           std::string_view localeDecimalSeparator) {
  if (row >= kLastRow) return ToolOutcome::NoRoom;
  const ToolOutcome made = InsertRows(table, {row + 1, row + 1});
  if (made != ToolOutcome::Done) return made;
  return MovePoint(table, row + 1, place, {}, localeDecimalSeparator);
}

}  // namespace zentab::editor

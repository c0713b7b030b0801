#include "editor/curve_grid.h"

namespace zentab::editor {
namespace {

bool IsPointCell(int row, int column) {
  return row >= kFirstRow && row <= kLastRow && column >= kLoadColumn && column <= kTimeColumn;
}

}  // namespace

CurveGrid::CurveGrid() {
  SetHeadings("LoadLevel", "Time");
  for (std::size_t row = kFirstRow; row < kGridRows; ++row) cells_[row][0] = std::to_string(row);
}

const std::string& CurveGrid::Cell(int row, int column) const {
  return cells_.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

bool CurveGrid::SetCell(int row, int column, std::string_view text) {
  if (!IsPointCell(row, column)) return false;
  cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
  return true;
}

void CurveGrid::SetHeadings(std::string_view load, std::string_view time) {
  cells_[0][kLoadColumn] = load;
  cells_[0][kTimeColumn] = time;
}

void CurveGrid::ClearPoints() {
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    SetCell(row, kLoadColumn, {});
    SetCell(row, kTimeColumn, {});
  }
}

void CurveGrid::MoveTo(int row, int column) {
  if (!IsPointCell(row, column)) return;
  row_ = row;
  column_ = column;
}

}  // namespace zentab::editor

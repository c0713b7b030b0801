#include "editor/row_tools.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "editor/grid_points.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

struct Row {
  std::string load;
  std::string time;

  [[nodiscard]] bool IsEmpty() const { return load.empty() && time.empty(); }
  friend bool operator==(const Row&, const Row&) = default;
};

// The rows of a span; the first one has the index 0.
std::vector<Row> RowsOf(const CurveGrid& grid, const RowSpan& span) {
  std::vector<Row> rows;
  for (int row = span.first; row <= span.last; ++row) {
    rows.push_back({grid.Cell(row, kLoadColumn), grid.Cell(row, kTimeColumn)});
  }
  return rows;
}

// Writes rows back from a row on.
ToolOutcome Write(WorkingTable& table, int first, const std::vector<Row>& rows) {
  const int last = first + static_cast<int>(rows.size()) - 1;
  if (rows == RowsOf(table.grid, {first, last})) return ToolOutcome::NothingToDo;
  for (int row = first; row <= last; ++row) {
    const Row& written = rows[static_cast<std::size_t>(row - first)];
    table.grid.SetCell(row, kLoadColumn, written.load);
    table.grid.SetCell(row, kTimeColumn, written.time);
  }
  table.tableModified = true;
  return ToolOutcome::Done;
}

}  // namespace

int LastUsedRow(const CurveGrid& grid) {
  int row = kLastRow;
  while (row >= kFirstRow && grid.Cell(row, kLoadColumn).empty() &&
         grid.Cell(row, kTimeColumn).empty()) {
    --row;
  }
  return row < kFirstRow ? 0 : row;
}

ToolOutcome InsertRows(WorkingTable& table, const RowSpan& rows) {
  const int used = LastUsedRow(table.grid);
  if (used < rows.first) return ToolOutcome::NothingToDo;
  if (used + rows.Count() > kLastRow) return ToolOutcome::NoRoom;
  std::vector<Row> moved = RowsOf(table.grid, {rows.first, used});
  moved.insert(moved.begin(), static_cast<std::size_t>(rows.Count()), Row());
  return Write(table, rows.first, moved);
}

ToolOutcome DeleteRows(WorkingTable& table, const RowSpan& rows) {
  std::vector<Row> kept = RowsOf(table.grid, {rows.last + 1, kLastRow});
  kept.resize(kept.size() + static_cast<std::size_t>(rows.Count()));
  return Write(table, rows.first, kept);
}

ToolOutcome MoveRowsUp(WorkingTable& table, const RowSpan& rows) {
  if (rows.first <= kFirstRow) return ToolOutcome::NothingToDo;
  std::vector<Row> moved = RowsOf(table.grid, {rows.first - 1, rows.last});
  std::rotate(moved.begin(), moved.begin() + 1, moved.end());
  return Write(table, rows.first - 1, moved);
}

ToolOutcome MoveRowsDown(WorkingTable& table, const RowSpan& rows) {
  if (rows.last >= kLastRow) return ToolOutcome::NothingToDo;
  std::vector<Row> moved = RowsOf(table.grid, {rows.first, rows.last + 1});
  std::rotate(moved.begin(), moved.end() - 1, moved.end());
  return Write(table, rows.first, moved);
}

ToolOutcome SortByLoad(WorkingTable& table, const RowSpan& rows,
                       std::string_view localeDecimalSeparator) {
  constexpr double kBehindNumbers = std::numeric_limits<double>::infinity();
  std::vector<Row> sorted = RowsOf(table.grid, rows);
  const auto place = [&](const Row& row) {
    const auto load = texts::WholeNumber(texts::FileNumber(row.load, localeDecimalSeparator));
    return std::pair(row.IsEmpty(), load.value_or(kBehindNumbers));
  };
  std::stable_sort(sorted.begin(), sorted.end(),
                   [&](const Row& a, const Row& b) { return place(a) < place(b); });
  return Write(table, rows.first, sorted);
}

ToolOutcome Reverse(WorkingTable& table, const RowSpan& rows) {
  const int last = std::min(rows.last, LastUsedRow(table.grid));
  if (last <= rows.first) return ToolOutcome::NothingToDo;
  std::vector<Row> turned = RowsOf(table.grid, {rows.first, last});
  std::reverse(turned.begin(), turned.end());
  return Write(table, rows.first, turned);
}

}  // namespace zentab::editor

#include "editor/clipboard_text.h"

#include "editor/grid_tidy.h"

namespace zentab::editor {
namespace {

// Takes what stands before the next separator, and that with it, off the front of `text`.
std::string_view TakePart(std::string_view& text, std::string_view separators) {
  const std::size_t end = text.find_first_of(separators);
  const std::string_view part = text.substr(0, end);
  if (end == std::string_view::npos) {
    text = {};
  } else {
    const bool crLf = text.substr(end).starts_with("\r\n");
    text.remove_prefix(end + (crLf ? 2 : 1));
  }
  return part;
}

std::string_view TakeRow(std::string_view& text) { return TakePart(text, "\r\n"); }

void WriteRow(CurveGrid& grid, int row, const CellArea& area, std::string_view cells) {
  for (int column = area.left; column <= area.right; ++column) {
    const bool last = cells.find('\t') == std::string_view::npos;
    grid.SetCell(row, column, TakePart(cells, "\t"));
    if (last) return;
  }
}

void WriteBlock(CurveGrid& grid, const CellArea& area, std::string_view text) {
  for (int row = area.top; row <= area.bottom && !text.empty(); ++row) {
    WriteRow(grid, row, area, TakeRow(text));
  }
}

}  // namespace

std::string BlockText(const CurveGrid& grid, const CellArea& area) {
  std::string text;
  for (int row = area.top; row <= area.bottom; ++row) {
    if (row > area.top) text += '\r';
    for (int column = area.left; column <= area.right; ++column) {
      if (column > area.left) text += '\t';
      text += grid.Cell(row, column);
    }
  }
  return text;
}

std::string_view FirstRow(std::string_view text) { return TakeRow(text); }

std::string_view RowsBelowFirst(std::string_view text) {
  TakeRow(text);
  return text;
}

bool IsOneValue(std::string_view text) {
  return !HasSeveralRows(text) && FirstRow(text).find('\t') == std::string_view::npos;
}

bool HasSeveralRows(std::string_view text) { return !RowsBelowFirst(text).empty(); }

void PasteText(WorkingTable& table, const CellArea& area, std::string_view text,
               std::string_view localeDecimalSeparator) {
  if (text.empty()) return;
  CellArea filled = area;
  if (area.IsOneCell()) {
    filled.bottom = kLastRow;
    filled.right = kTimeColumn;
  }
  WriteBlock(table.grid, filled, text);
  TidyGrid(table.grid, localeDecimalSeparator);
}

void ClearArea(WorkingTable& table, const CellArea& area, std::string_view localeDecimalSeparator) {
  std::string empty;
  for (int row = kFirstRow; row <= kLastRow; ++row) empty += "\t\r";
  WriteBlock(table.grid, area, empty);
  table.tableModified = true;
  TidyGrid(table.grid, localeDecimalSeparator);
}

}  // namespace zentab::editor

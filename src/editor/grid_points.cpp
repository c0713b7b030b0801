#include "editor/grid_points.h"

#include "texts/number_text.h"

namespace zentab::editor {

std::optional<double> CellNumber(std::string_view cell) {
  return texts::LeadingNumber(texts::SetDecimalSeparator(cell, "."));
}

void ShowPoints(CurveGrid& grid, const std::vector<tables::CurvePoint>& points,
                std::string_view localeDecimalSeparator) {
  grid.ClearPoints();
  const auto shown = [localeDecimalSeparator](std::string_view number) {
    return texts::NumberText(texts::LeadingNumber(number).value_or(0.0), localeDecimalSeparator);
  };
  int row = kFirstRow;
  for (const tables::CurvePoint& point : points) {
    grid.SetCell(row, kLoadColumn, shown(point.load));
    grid.SetCell(row, kTimeColumn, shown(point.time));
    ++row;
  }
}

std::vector<tables::CurvePoint> PointRows(const CurveGrid& grid) {
  std::vector<tables::CurvePoint> rows;
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    rows.push_back({grid.Cell(row, kLoadColumn), grid.Cell(row, kTimeColumn)});
  }
  return rows;
}

}  // namespace zentab::editor

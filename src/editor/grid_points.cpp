#include "editor/grid_points.h"

#include "texts/number_text.h"

namespace zentab::editor {

std::optional<double> CellNumber(std::string_view cell, std::string_view localeDecimalSeparator) {
  return texts::LeadingNumber(texts::FileNumber(cell, localeDecimalSeparator));
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

std::vector<tables::CurvePoint> PointRows(const CurveGrid& grid,
                                          std::string_view localeDecimalSeparator) {
  const auto number = [&](int row, int column) {
    return texts::FileNumber(grid.Cell(row, column), localeDecimalSeparator);
  };
  std::vector<tables::CurvePoint> rows;
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    rows.push_back({number(row, kLoadColumn), number(row, kTimeColumn)});
  }
  return rows;
}

}  // namespace zentab::editor

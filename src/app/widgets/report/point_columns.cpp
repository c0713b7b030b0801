#include "app/widgets/report/point_columns.h"

#include <algorithm>

namespace zentab::app {
namespace {

constexpr std::size_t kUnassessedColumns = 3;
constexpr std::size_t kFewRows = 8;  // in one block
constexpr double kBlockGap = Points(28.0);
constexpr double kPadding = Points(4.0);
constexpr double kNumberWidth = Points(26.0);
constexpr double kNarrowBlock = 0.48;  // of the width, where one is enough

}  // namespace

PointColumns::PointColumns(const ReportPage& page)
    : page_(page),
      blocks_(page.headings.size() <= kUnassessedColumns && page.rows.size() > kFewRows ? 2 : 1) {}

std::size_t PointColumns::RowsOfBlock() const {
  return (page_.rows.size() + blocks_ - 1) / blocks_;
}

double PointColumns::Height() const {
  return PageWriter::LineHeight(PageText::CellHeading) +
         static_cast<double>(RowsOfBlock()) * PageWriter::LineHeight(PageText::Cell);
}

// The rows' numbers take what they need, and the others share the rest.
std::vector<double> PointColumns::Widths(double width) const {
  const std::size_t columns = page_.headings.size();
  std::vector<double> widths(columns, (width - kNumberWidth) / static_cast<double>(columns - 1));
  widths.front() = kNumberWidth;
  return widths;
}

void PointColumns::Draw(const QRectF& place, PageWriter& writer) const {
  const bool isNarrow = page_.headings.size() <= kUnassessedColumns;
  const double width = isNarrow ? (place.width() - kBlockGap) / 2.0 : place.width();
  for (std::size_t block = 0; block < blocks_; ++block) {
    const double left = place.left() + static_cast<double>(block) * (width + kBlockGap);
    DrawBlock({left, place.top(), width, Height()}, block * RowsOfBlock(), writer);
  }
}

void PointColumns::DrawBlock(const QRectF& place, std::size_t first, PageWriter& writer) const {
  const std::vector<double> widths = Widths(place.width());
  const std::size_t end = std::min(first + RowsOfBlock(), page_.rows.size());
  const auto line = [&](const std::vector<std::string>& cells, double top, PageText kind) {
    double left = place.left();
    for (std::size_t column = 0; column < cells.size(); ++column) {
      const QRectF cell(left, top, widths[column], PageWriter::LineHeight(kind));
      // A gap at the left only: the last column ends where the rules do.
      writer.Put(cell.adjusted(column == 0 ? 0.0 : kPadding, 0.0, 0.0, 0.0),
                 QString::fromStdString(cells[column]), kind, Qt::AlignRight);
      left += widths[column];
    }
  };
  line(page_.headings, place.top(), PageText::CellHeading);
  double top = place.top() + PageWriter::LineHeight(PageText::CellHeading);
  writer.Rule(place.left(), place.right(), top, true);
  for (std::size_t row = first; row < end; ++row) {
    line(page_.rows[row], top, page_.marked[row] ? PageText::CellMarked : PageText::Cell);
    top += PageWriter::LineHeight(PageText::Cell);
    writer.Rule(place.left(), place.right(), top, row + 1 == end);
  }
}

}  // namespace zentab::app

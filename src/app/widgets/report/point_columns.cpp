#include "app/widgets/report/point_columns.h"

#include <algorithm>
#include <numeric>

namespace zentab::app {
namespace {

constexpr std::size_t kUnassessedColumns = 3;
constexpr std::size_t kFewRows = 8;  // in one block
constexpr double kBlockGap = Points(28.0);
constexpr double kCellPadding = Points(4.0);
constexpr double kNumberWidth = Points(26.0);
constexpr double kLeastWidth = Points(36.0);

}  // namespace

PointColumns::PointColumns(const ReportPage& page)
    : page_(page),
      blocks_(page.headings.size() <= kUnassessedColumns && page.rows.size() > kFewRows ? 2 : 1) {}

std::size_t PointColumns::RowsOfBlock() const {
  return (page_.rows.size() + blocks_ - 1) / blocks_;
}

double PointColumns::WidestCell(std::size_t column) const {
  double widest = 0.0;
  for (const std::vector<std::string>& row : page_.rows) {
    const QString cell = QString::fromStdString(row[column]);
    widest = std::max(widest, PageWriter::Width(cell, PageText::CellMarked));
  }
  return widest;
}

// Each gets what its heading and its cells take, in two lines where one is too much, and the rest
// is shared.
std::vector<double> PointColumns::Widths(double width) const {
  std::vector<double> widths;
  for (const double lines : {1.0, 2.0}) {
    widths = {kNumberWidth};
    for (std::size_t column = 1; column < page_.headings.size(); ++column) {
      const QString heading = QString::fromStdString(page_.headings[column]);
      const double heads = PageWriter::Width(heading, PageText::CellHeading) / lines;
      widths.push_back(std::max({heads, kLeastWidth, WidestCell(column)}) + 2.0 * kCellPadding);
    }
    if (std::accumulate(widths.begin(), widths.end(), 0.0) <= width) break;
  }
  const double rest = width - std::accumulate(widths.begin(), widths.end(), 0.0);
  const double share = rest / static_cast<double>(widths.size() - 1);
  for (std::size_t column = 1; column < widths.size(); ++column) widths[column] += share;
  return widths;
}

std::size_t PointColumns::HeadingLines(const std::vector<double>& widths) const {
  bool fits = true;
  for (std::size_t column = 1; column < widths.size(); ++column) {
    const QString heading = QString::fromStdString(page_.headings[column]);
    fits =
        fits && PageWriter::Width(heading, PageText::CellHeading) <= widths[column] - kCellPadding;
  }
  return fits ? 1 : 2;
}

double PointColumns::BlockWidth(double width) const {
  const bool isNarrow = page_.headings.size() <= kUnassessedColumns;
  return isNarrow ? (width - kBlockGap) / 2.0 : width;
}

double PointColumns::Height(double width) const {
  const auto headings = static_cast<double>(HeadingLines(Widths(BlockWidth(width))));
  return headings * PageWriter::LineHeight(PageText::CellHeading) + kCellPadding / 2.0 +
         static_cast<double>(RowsOfBlock()) * PageWriter::LineHeight(PageText::Cell);
}

void PointColumns::Draw(const QRectF& place, PageWriter& writer) const {
  const double width = BlockWidth(place.width());
  for (std::size_t block = 0; block < blocks_; ++block) {
    const double left = place.left() + static_cast<double>(block) * (width + kBlockGap);
    DrawBlock({left, place.top(), width, place.height()}, block * RowsOfBlock(), writer);
  }
}

// The headings stand on the rule, whether they take one line or two.
double PointColumns::DrawHeadings(const QRectF& place, const std::vector<double>& widths,
                                  PageWriter& writer) const {
  const double lineHeight = PageWriter::LineHeight(PageText::CellHeading);
  const std::size_t most = HeadingLines(widths);
  const double bottom = place.top() + static_cast<double>(most) * lineHeight;
  double right = place.left();
  for (std::size_t column = 0; column < widths.size(); ++column) {
    right += widths[column];
    const double width = widths[column] - (column == 0 ? 0.0 : kCellPadding);
    const std::vector<QString> lines = PageWriter::Broken(
        QString::fromStdString(page_.headings[column]), PageText::CellHeading, width, most);
    double top = bottom - static_cast<double>(lines.size()) * lineHeight;
    for (const QString& line : lines) {
      writer.Put({right - width, top, width, lineHeight}, line, PageText::CellHeading,
                 Qt::AlignRight);
      top += lineHeight;
    }
  }
  writer.Rule(place.left(), place.right(), bottom + kCellPadding / 2.0, true);
  return bottom + kCellPadding / 2.0;
}

void PointColumns::DrawBlock(const QRectF& place, std::size_t first, PageWriter& writer) const {
  const std::vector<double> widths = Widths(place.width());
  const std::size_t end = std::min(first + RowsOfBlock(), page_.rows.size());
  const double height = PageWriter::LineHeight(PageText::Cell);
  double top = DrawHeadings(place, widths, writer);
  for (std::size_t row = first; row < end; ++row) {
    double left = place.left();
    for (std::size_t column = 0; column < widths.size(); ++column) {
      writer.Put({left, top, widths[column], height},
                 QString::fromStdString(page_.rows[row][column]),
                 page_.marked[row] ? PageText::CellMarked : PageText::Cell, Qt::AlignRight);
      left += widths[column];
    }
    top += height;
    writer.Rule(place.left(), place.right(), top, row + 1 == end);
  }
}

}  // namespace zentab::app

#pragma once

#include "app/report_content.h"
#include "app/widgets/report/page_writer.h"

namespace zentab::app {

/// The table of a page's points: in two blocks side by side where its few columns allow it.
class PointColumns {
 public:
  explicit PointColumns(const ReportPage& page);

  /// Its height over a width.
  [[nodiscard]] double Height(double width) const;
  /// Draws it from the upper left corner of `place`, over its width.
  void Draw(const QRectF& place, PageWriter& writer) const;

 private:
  [[nodiscard]] std::size_t RowsOfBlock() const;
  [[nodiscard]] double BlockWidth(double width) const;
  [[nodiscard]] std::size_t HeadingLines(const std::vector<double>& widths) const;
  [[nodiscard]] double DrawHeadings(const QRectF& place, const std::vector<double>& widths,
                                    PageWriter& writer) const;
  void DrawBlock(const QRectF& place, std::size_t first, PageWriter& writer) const;
  [[nodiscard]] double WidestCell(std::size_t column) const;
  [[nodiscard]] std::vector<double> Widths(double width) const;

  const ReportPage& page_;
  std::size_t blocks_;
};

}  // namespace zentab::app

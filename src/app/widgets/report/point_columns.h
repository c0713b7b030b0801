#pragma once

#include "app/report_content.h"
#include "app/widgets/report/page_writer.h"

namespace zentab::app {

/// The table of a page's points: in two blocks side by side where its few columns allow it.
class PointColumns {
 public:
  explicit PointColumns(const ReportPage& page);

  [[nodiscard]] double Height() const;
  /// Draws it from the upper left corner of `place`, over its width.
  void Draw(const QRectF& place, PageWriter& writer) const;

 private:
  [[nodiscard]] std::size_t RowsOfBlock() const;
  void DrawBlock(const QRectF& place, std::size_t first, PageWriter& writer) const;
  [[nodiscard]] std::vector<double> Widths(double width) const;

  const ReportPage& page_;
  std::size_t blocks_;
};

}  // namespace zentab::app

#pragma once

#include <QSizeF>
#include <vector>

#include "app/report_content.h"
#include "app/widgets/report/chart_picture.h"
#include "app/widgets/report/page_writer.h"

namespace zentab::app {

/// The pages of a report as they are drawn: a list of contents where there are several tables,
/// then one page for each.
class ReportPages {
 public:
  /// `points`: the size of the paper in points (1/72 inch).
  ReportPages(const Report& report, const QSizeF& points);

  [[nodiscard]] int Count() const;
  /// Draws a page, from 0, on a painter that has `unitsPerInch` from the paper's upper left corner.
  void Draw(int page, QCPPainter& painter, double unitsPerInch);

 private:
  [[nodiscard]] int ContentsPages() const;
  void DrawTable(const ReportPage& page, QRectF place, QCPPainter& painter);
  void DrawCurve(const ReportPage& page, const QRectF& place, QCPPainter& painter);
  void DrawContents(int part, QRectF place, PageWriter& writer) const;

  const Report& report_;
  QRectF sheet_;              // inside the margins
  std::size_t contentsRows_;  // on a page
  PaperChart chart_;
};

}  // namespace zentab::app

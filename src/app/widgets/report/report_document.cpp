#include "app/widgets/report/report_document.h"

#include <QBuffer>
#include <QLocale>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>

#include "app/widgets/report/pdf_text.h"
#include "app/widgets/report/report_pages.h"

namespace zentab::app {
namespace {

constexpr int kPdfUnitsPerInch = 1200;

}  // namespace

QPageSize PageSizeOf(Paper paper) {
  return QPageSize(paper == Paper::Letter ? QPageSize::Letter : QPageSize::A4);
}

Paper UsualPaper() {
  const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return inches ? Paper::Letter : Paper::A4;
}

QByteArray ReportPdf(const Report& report, Paper paper) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kPdfUnitsPerInch);
  writer.setCreator(QLatin1String(kProgram));
  if (!report.pages.empty()) writer.setTitle(QString::fromStdString(report.pages.front().title));
  const QPageSize size = PageSizeOf(paper);
  writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, {}));
  ReportPages pages(report, size.size(QPageSize::Point));
  QCPPainter painter(&writer);
  for (int page = 0; page < pages.Count(); ++page) {
    if (page > 0) writer.newPage();
    pages.Draw(page, painter, kPdfUnitsPerInch);
  }
  painter.end();
  return WithTextAsWritten(bytes);
}

bool PrintReport(const Report& report, QPrinter& printer) {
  printer.setFullPage(true);
  ReportPages pages(report, printer.pageLayout().fullRect(QPageLayout::Point).size());
  const bool isAll = printer.fromPage() < 1;
  const int first = isAll ? 0 : std::min(printer.fromPage(), pages.Count()) - 1;
  const int last = isAll ? pages.Count() - 1 : std::min(printer.toPage(), pages.Count()) - 1;
  QCPPainter painter;
  if (!painter.begin(&printer)) return false;
  for (int page = first; page <= last; ++page) {
    if (page > first && !printer.newPage()) return false;
    pages.Draw(page, painter, printer.resolution());
  }
  return painter.end();
}

}  // namespace zentab::app

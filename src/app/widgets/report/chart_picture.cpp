#include "app/widgets/report/chart_picture.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "app/widgets/report/pdf_text.h"
#include "app/widgets/report/report_document.h"
#include "app/widgets/report/svg_fonts.h"

namespace zentab::app {
namespace {

constexpr int kUnitsPerInch = 2540;
constexpr double kMillimetresPerMetre = 1000.0;

QSizeF InUnits(const QSizeF& millimetres, double unitsPerInch) {
  return millimetres * (unitsPerInch / kMillimetresPerInch);
}

QImage Pixels(editor::CurveChart& chart, const PictureSize& size) {
  QImage image(InUnits(size.millimetres, size.dotsPerInch).toSize(), QImage::Format_RGB32);
  if (image.isNull()) return image;
  const double dotsPerMetre = size.dotsPerInch * kMillimetresPerMetre / kMillimetresPerInch;
  image.setDotsPerMeterX(qRound(dotsPerMetre));
  image.setDotsPerMeterY(qRound(dotsPerMetre));
  image.fill(Qt::white);
  QCPPainter painter(&image);
  DrawChart(chart, painter, QRectF(image.rect()), size.dotsPerInch);
  return image;
}

QByteArray PngOf(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (image.isNull() || !image.save(&buffer, "PNG")) return {};
  return bytes;
}

QByteArray SvgOf(editor::CurveChart& chart, const PictureSize& size, const QString& title) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  const QSizeF units = InUnits(size.millimetres, kUnitsPerInch);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kUnitsPerInch);
  generator.setSize(units.toSize());
  generator.setViewBox(QRectF({0.0, 0.0}, units));
  // Which writes it as it is.
  generator.setTitle(title.toHtmlEscaped());
  generator.setDescription(QString());
  QCPPainter painter(&generator);
  DrawChart(chart, painter, QRectF({0.0, 0.0}, units), kUnitsPerInch);
  painter.end();
  return WithFonts(bytes);
}

QByteArray PdfOf(editor::CurveChart& chart, const PictureSize& size, const QString& title) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kUnitsPerInch);
  writer.setTitle(title);
  writer.setCreator(QLatin1String(kProgram));
  const QPageSize page(size.millimetres, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
  writer.setPageLayout(QPageLayout(page, QPageLayout::Portrait, {}));
  QCPPainter painter(&writer);
  DrawChart(chart, painter, QRectF({0.0, 0.0}, InUnits(size.millimetres, kUnitsPerInch)),
            kUnitsPerInch);
  painter.end();
  return WithTextAsWritten(bytes);
}

}  // namespace

std::optional<PictureFormat> FormatOf(const QString& file) {
  const QString suffix = QFileInfo(file).suffix().toLower();
  if (suffix == QLatin1String("png")) return PictureFormat::Png;
  if (suffix == QLatin1String("svg")) return PictureFormat::Svg;
  if (suffix == QLatin1String("pdf")) return PictureFormat::Pdf;
  return std::nullopt;
}

void DrawChart(editor::CurveChart& chart, QCPPainter& painter, const QRectF& area,
               double unitsPerInch) {
  // The chart counts its places in whole pixels; what is left over is stretched.
  const QSize pixels = (area.size() * (kPixelsPerInch / unitsPerInch)).toSize();
  painter.save();
  painter.translate(area.topLeft());
  painter.scale(area.width() / pixels.width(), area.height() / pixels.height());
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNonCosmetic);
  chart.toPainter(&painter, pixels.width(), pixels.height());
  painter.restore();
}

QByteArray ChartPicture(editor::CurveChart& chart, PictureFormat format, const PictureSize& size,
                        const QString& title) {
  const PaperLook look(chart);
  switch (format) {
    case PictureFormat::Svg:
      return SvgOf(chart, size, title);
    case PictureFormat::Pdf:
      return PdfOf(chart, size, title);
    case PictureFormat::Png:
      break;
  }
  return PngOf(Pixels(chart, size));
}

std::unique_ptr<QMimeData> ChartForClipboard(editor::CurveChart& chart, const PictureSize& size,
                                             const QString& title) {
  const PaperLook look(chart);
  auto data = std::make_unique<QMimeData>();
  data->setImageData(Pixels(chart, size));
  data->setData(QStringLiteral("image/svg+xml"), SvgOf(chart, size, title));
  data->setData(QStringLiteral("application/pdf"), PdfOf(chart, size, title));
  return data;
}

PaperChart::PaperChart(const QString& decimalSeparator)
    : chart_(new editor::CurveChart(&hidden_)), look_(*chart_) {
  chart_->SetDecimalSeparator(decimalSeparator);
}

PaperChart::~PaperChart() = default;

editor::CurveChart& PaperChart::Show(const editor::ChartCurve& curve, const QString& load,
                                     const QString& time) {
  chart_->ShowCurve(curve);
  chart_->SetAxisTitles(load, time);
  chart_->Fit();
  return *chart_;
}

}  // namespace zentab::app

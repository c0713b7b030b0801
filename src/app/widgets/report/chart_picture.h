#pragma once

#include <QByteArray>
#include <QMimeData>
#include <QRectF>
#include <QString>
#include <memory>
#include <optional>

#include "app/widgets/report/paper_look.h"
#include "app/widgets/report/picture_size.h"
#include "editor/chart_curve.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::app {

enum class PictureFormat { Png, Svg, Pdf };

/// The format that a file's name asks for by its end; nothing for any other end.
[[nodiscard]] std::optional<PictureFormat> FormatOf(const QString& file);

/// Draws a chart into `area` of a painter; `unitsPerInch` of them are one inch of the chart's lines
/// and letters. It draws vectors wherever the painter can.
void DrawChart(editor::CurveChart& chart, QCPPainter& painter, const QRectF& area,
               double unitsPerInch);

/// A chart as a file of that format, as it stands on paper; empty when there is no room for it in
/// the memory.
[[nodiscard]] QByteArray ChartPicture(editor::CurveChart& chart, PictureFormat format,
                                      const PictureSize& size, const QString& title);

/// The same for the clipboard: pixels for any program, vectors for those that take them.
[[nodiscard]] std::unique_ptr<QMimeData> ChartForClipboard(editor::CurveChart& chart,
                                                           const PictureSize& size,
                                                           const QString& title);

/// A chart that no screen shows, in the colours of paper.
class PaperChart {
 public:
  explicit PaperChart(const QString& decimalSeparator);
  ~PaperChart();
  PaperChart(const PaperChart&) = delete;
  PaperChart& operator=(const PaperChart&) = delete;

  /// The chart with a curve and its axes' titles, all of it in view.
  [[nodiscard]] editor::CurveChart& Show(const editor::ChartCurve& curve, const QString& load,
                                         const QString& time);

 private:
  QWidget hidden_;  // a chart without a window around it would open one
  editor::CurveChart* chart_;
  PaperLook look_;
};

}  // namespace zentab::app

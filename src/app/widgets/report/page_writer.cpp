#include "app/widgets/report/page_writer.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <array>

#include "app/widgets/report/paper_look.h"

namespace zentab::app {
namespace {

struct TextRow {
  double points;
  double lineHeight;  // of the size
  QFont::Weight weight;
  QColor colour;
};

const QColor kInk(0x1A, 0x1A, 0x1A);
const QColor kGrey(0x55, 0x5B, 0x61);
const QColor kStrongRule(0x8A, 0x90, 0x96);
const QColor kFaintRule(0xD9, 0xDC, 0xDF);

// In the order of PageText.
const TextRow& RowOf(PageText kind) {
  static const std::array<TextRow, 7> rows = {{
      {16.0, 1.35, QFont::Bold, kInk},
      {10.0, 1.5, QFont::DemiBold, kInk},
      {9.0, 1.6, QFont::Normal, kInk},
      {8.0, 1.6, QFont::Normal, kGrey},
      {8.0, 1.4, QFont::Normal, kInk},
      {7.5, 1.35, QFont::DemiBold, kGrey},
      {8.0, 1.4, QFont::Bold, kInk},
  }};
  return rows[static_cast<std::size_t>(kind)];
}

QFont FontOf(PageText kind) {
  const TextRow& row = RowOf(kind);
  QFont font = PaperFont(qRound(Points(row.points)));
  font.setWeight(row.weight);
  return font;
}

// Made once: fonts are looked up by name.
const QFontMetricsF& MetricsOf(PageText kind) {
  static const std::array<QFontMetricsF, 7> metrics = {
      QFontMetricsF(FontOf(PageText::Title)),     QFontMetricsF(FontOf(PageText::Heading)),
      QFontMetricsF(FontOf(PageText::Line)),      QFontMetricsF(FontOf(PageText::Small)),
      QFontMetricsF(FontOf(PageText::Cell)),      QFontMetricsF(FontOf(PageText::CellHeading)),
      QFontMetricsF(FontOf(PageText::CellMarked))};
  return metrics[static_cast<std::size_t>(kind)];
}

}  // namespace

void PageWriter::Put(const QRectF& place, const QString& text, PageText kind,
                     Qt::Alignment alignment, Qt::TextElideMode mode) {
  if (text.isEmpty()) return;
  painter_.setFont(FontOf(kind));
  painter_.setPen(RowOf(kind).colour);
  // Text has no half pixels to be moved by.
  painter_.drawText(place, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                    MetricsOf(kind).elidedText(text, mode, place.width()));
}

void PageWriter::Rule(double left, double right, double y, bool isStrong) {
  painter_.setPen(QPen(isStrong ? kStrongRule : kFaintRule, Points(isStrong ? 0.6 : 0.4)));
  painter_.drawLine(QLineF(left, y, right, y));
}

double PageWriter::LineHeight(PageText kind) {
  return Points(RowOf(kind).points * RowOf(kind).lineHeight);
}

double PageWriter::Width(const QString& text, PageText kind) {
  return MetricsOf(kind).horizontalAdvance(text);
}

std::vector<QString> PageWriter::Broken(const QString& text, PageText kind, double width,
                                        std::size_t most) {
  QTextLayout layout(text, FontOf(kind));
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  std::vector<QString> lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    // What is left over is shortened where it is put.
    const bool isLast = lines.size() + 1 == most;
    lines.push_back(text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed());
    if (isLast) break;
  }
  layout.endLayout();
  return lines;
}

}  // namespace zentab::app

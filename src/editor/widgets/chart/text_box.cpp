#include "editor/widgets/chart/text_box.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::editor {
namespace {

constexpr int kPadding = 6;  // logical pixels
constexpr int kBetween = 12;
constexpr double kFrameContrast = 3.0;

}  // namespace

TextBox::TextBox(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void TextBox::SetRows(const QList<QStringList>& rows) {
  if (rows == rows_) return;
  rows_ = rows;
  Measure();
  update();
}

void TextBox::Measure() {
  const QFontMetrics metrics = fontMetrics();
  widths_.clear();
  for (const QStringList& row : rows_) {
    for (qsizetype column = 0; column < row.size(); ++column) {
      if (column >= widths_.size()) widths_.append(0);
      widths_[column] = std::max(widths_[column], metrics.horizontalAdvance(row[column]));
    }
  }
  int width = 2 * kPadding - kBetween;
  for (const int column : widths_) width += column + kBetween;
  resize(width, static_cast<int>(rows_.size()) * metrics.height() + 2 * kPadding);
}

void TextBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Base);
  const QColor text = palette().color(QPalette::Text);
  painter.fillRect(rect(), base);
  painter.setPen(LineOn(base, text, kFrameContrast));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  painter.setPen(text);
  const int height = fontMetrics().height();
  int top = kPadding;
  for (const QStringList& row : rows_) {
    int left = kPadding;
    for (qsizetype column = 0; column < row.size(); ++column) {
      // Numbers below each other, names too.
      const Qt::Alignment side = (column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
      painter.drawText(QRect(left, top, widths_[column], height), static_cast<int>(side.toInt()),
                       row[column]);
      left += widths_[column] + kBetween;
    }
    top += height;
  }
}

void TextBox::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) Measure();
}

}  // namespace zentab::editor

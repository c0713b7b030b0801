#include "app/widgets/library/entry_rows.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyle>

namespace zentab::app {
namespace {

QString LetterOf(int instrument) {
  switch (static_cast<tables::Instrument>(instrument)) {
    case tables::Instrument::Current:
      return QStringLiteral("A");
    case tables::Instrument::Voltage:
      return QStringLiteral("V");
    default:
      return {};
  }
}

QPixmap DrawnLetter(const QString& letter, const QFont& font, int height, qreal scale,
                    const QColor& colour) {
  QPixmap picture(QSize(height, height) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  if (letter.isEmpty()) return picture;
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr double kLetter = 0.68;  // of the height
  constexpr double kRound = 0.2;
  constexpr float kFaint = 0.55F;
  QColor frame = colour;
  frame.setAlphaF(kFaint);
  painter.setPen(frame);
  const QRectF box(0.5, 0.5, height - 1.0, height - 1.0);
  painter.drawRoundedRect(box, kRound * height, kRound * height);
  QFont small = font;
  small.setPixelSize(std::max(1, static_cast<int>(kLetter * height)));
  painter.setFont(small);
  painter.setPen(colour);
  painter.drawText(box, Qt::AlignCenter, letter);
  return picture;
}

// Lists of Windows show what is selected on a light ground, whatever the palette has.
QPalette::ColorRole SelectedText(const QStyleOptionViewItem& option) {
  const QStyle* const style =
      option.widget != nullptr ? option.widget->style() : QApplication::style();
  return style->name() == QLatin1String("windowsvista") ? QPalette::Text
                                                        : QPalette::HighlightedText;
}

}  // namespace

QWidget* EntryRows::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  QWidget* const field = RoomyRows::createEditor(parent, option, index);
  // For screen readers: there is no label beside it.
  field->setAccessibleName(index.data().toString());
  return field;
}

void EntryRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  RoomyRows::initStyleOption(option, index);
  const QVariant instrument = index.data(EntryListModel::kInstrumentRole);
  if (!instrument.isValid()) return;
  const int height = option->fontMetrics.height() - 1;
  const qreal scale = option->widget != nullptr ? option->widget->devicePixelRatioF() : 1.0;
  DrawnMark& mark = marks_[instrument.toInt()];
  const qint64 palette = option->palette.cacheKey();
  if (mark.palette != palette || mark.height != height || mark.scale != scale) {
    mark = {{}, palette, height, scale};
    const auto add = [&](QPalette::ColorRole role, QIcon::Mode mode) {
      mark.icon.addPixmap(DrawnLetter(LetterOf(instrument.toInt()), option->font, height, scale,
                                      option->palette.color(QPalette::Active, role)),
                          mode);
    };
    add(QPalette::Text, QIcon::Normal);
    add(SelectedText(*option), QIcon::Selected);
  }
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->icon = mark.icon;
  option->decorationSize = QSize(height, height);
}

}  // namespace zentab::app

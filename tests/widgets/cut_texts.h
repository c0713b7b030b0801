#pragma once

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <algorithm>

namespace zentab::app {

/// Whether a control is a part of another one, which has the name.
inline bool IsPartOfAnother(const QWidget& control) {
  return control.objectName().startsWith(QLatin1String("qt_")) ||
         qobject_cast<QAbstractSpinBox*>(control.parentWidget()) != nullptr ||
         qobject_cast<QComboBox*>(control.parentWidget()) != nullptr;
}

/// The least size at which a control shows all of its text.
inline QSize NeededBy(const QWidget& control) {
  if (const auto* const label = qobject_cast<const QLabel*>(&control)) {
    if (label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) return {};
    return label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
  }
  if (const auto* const choice = qobject_cast<const QComboBox*>(&control)) {
    QStyleOptionComboBox option;
    option.initFrom(choice);
    option.subControls = QStyle::SC_All;
    const QRect field = choice->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                        QStyle::SC_ComboBoxEditField, choice);
    const int text = choice->fontMetrics().horizontalAdvance(choice->currentText());
    return {choice->width() + std::max(0, text - field.width()), choice->sizeHint().height()};
  }
  if (const auto* const field = qobject_cast<const QLineEdit*>(&control)) {
    const QFontMetrics metrics = field->fontMetrics();
    const int frame = field->sizeHint().width() - 17 * metrics.horizontalAdvance('x');
    const QString text = field->text().isEmpty() ? field->placeholderText() : QString();
    return {metrics.horizontalAdvance(text) + std::min(frame, 8), field->sizeHint().height()};
  }
  if (qobject_cast<const QAbstractSpinBox*>(&control) != nullptr) {
    return {0, control.sizeHint().height()};
  }
  const auto* const tool = qobject_cast<const QToolButton*>(&control);
  if (tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonIconOnly) return {};
  if (qobject_cast<const QGroupBox*>(&control) != nullptr) return control.minimumSizeHint();
  return qobject_cast<const QAbstractButton*>(&control) != nullptr ? control.sizeHint() : QSize();
}

/// Whether the control stands in the room of another one beside it.
inline bool IsCovered(const QWidget& control) {
  const auto isText = [](const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QLabel*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr;
  };
  const QObjectList& beside = control.parent()->children();
  return isText(control) && std::any_of(beside.begin(), beside.end(), [&](const QObject* object) {
           const auto* const other = qobject_cast<const QWidget*>(object);
           return other != nullptr && other != &control && other->isVisible() && isText(*other) &&
                  other->geometry().intersects(control.geometry());
         });
}

/// The controls that show a part of their text only.
inline QStringList Cut(const QWidget& window) {
  QStringList found;
  for (const auto* const control : window.findChildren<QWidget*>()) {
    if (!control->isVisible() || IsPartOfAnother(*control)) continue;
    if (IsCovered(*control)) found += control->objectName() + " stands in the room of another";
    const QSize needed = NeededBy(*control);
    if (needed.width() > control->width() || needed.height() > control->height()) {
      found += QStringLiteral("%1 %2 '%3' is %4 × %5, not %6 × %7")
                   .arg(control->metaObject()->className(), control->objectName(),
                        control->property("text").toString())
                   .arg(control->width())
                   .arg(control->height())
                   .arg(needed.width())
                   .arg(needed.height());
    }
    const auto* const header = qobject_cast<const QHeaderView*>(control);
    if (header == nullptr || header->orientation() == Qt::Vertical) continue;
    for (int section = 0; section < header->count(); ++section) {
      const QString text = header->model()->headerData(section, Qt::Horizontal).toString();
      if (header->fontMetrics().horizontalAdvance(text) + 4 > header->sectionSize(section)) {
        found +=
            QStringLiteral("the heading '%1' has %2").arg(text).arg(header->sectionSize(section));
      }
    }
  }
  return found;
}

}  // namespace zentab::app

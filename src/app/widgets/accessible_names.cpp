#include "app/widgets/accessible_names.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>
#include <QRegularExpression>
#include <QToolButton>

namespace zentab::app {
namespace {

struct NameRow {
  const char* control;
  const char* name;
};

// Controls without caption and label, as long as no catalogue names them.
constexpr NameRow kNames[] = {
    {"MSFlexGrid1", "Points of the curve"}, {"MSChart1", "Chart of the curve"},
    {"ListLegend", "Curves in the chart"},  {"TextFilter", "Find a name"},
    {"Text1", "Name of the new entry"},
};

// Qt knows what its own controls are.
QAccessibleInterface* ChartInterface(const QString& kind, QObject* object) {
  const bool isChart = kind == QLatin1String("QCustomPlot") && object->isWidgetType();
  return isChart ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Chart)
                 : nullptr;
}

}  // namespace

QString PlainCaption(QString caption) {
  static const QRegularExpression behind(QStringLiteral("\\(&.\\)"));
  return caption.remove(behind).remove('&');
}

QString PlainTitle(const QString& caption) {
  const QString plain = PlainCaption(caption);
  return plain.endsWith(QChar(0x2026)) ? plain.chopped(1) : plain;
}

AccessibleNames::AccessibleNames(QMainWindow& form) : QObject(&form), form_(form) {
  QAccessible::installFactory(ChartInterface);
  for (const NameRow& row : kNames) {
    if (auto* const control = form.findChild<QWidget*>(QLatin1String(row.control))) {
      control->setAccessibleName(QString::fromUtf8(row.name));
    }
  }
}

void AccessibleNames::Refresh() {
  for (QLabel* const label : form_.findChildren<QLabel*>()) {
    if (QWidget* const field = label->buddy())
      field->setAccessibleName(PlainCaption(label->text()));
  }
  for (auto* const button : form_.findChildren<QAbstractButton*>()) {
    // Those of the status bar say other things all the time, and what they are called with it.
    const bool isConstant = qobject_cast<QToolButton*>(button) == nullptr;
    if (isConstant && !button->text().isEmpty())
      button->setAccessibleName(PlainCaption(button->text()));
  }
  for (QWidget* const control : form_.findChildren<QWidget*>()) {
    // What is said of a whole is said of the field in it, too.
    const QWidget* said = control;
    while (said->toolTip().isEmpty() && said->parentWidget() != nullptr)
      said = said->parentWidget();
    if (control->focusPolicy() == Qt::NoFocus || control->objectName().isEmpty()) continue;
    const QString tip = said->toolTip();
    control->setAccessibleDescription(tip.isEmpty() ? control->accessibleName() : tip);
  }
}

}  // namespace zentab::app

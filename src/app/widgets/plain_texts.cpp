#include "app/widgets/plain_texts.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocument>
#include <QToolTip>

namespace zentab::app {
namespace {

// A tooltip is a label as well: it gets its text ready for it, as markup for the sake of the lines.
bool IsTooltip(const QObject& label) { return label.inherits("QTipLabel"); }

QString TooltipAt(const QWidget& widget, const QPoint& place) {
  const auto* const view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
  if (view == nullptr || view->viewport() != &widget) return widget.toolTip();
  return view->indexAt(place).data(Qt::ToolTipRole).toString();
}

// An image named by a text is read as soon as the label's size is asked for.
void MakePlain(QWidget& widget) {
  QList<QLabel*> labels = widget.findChildren<QLabel*>();
  if (auto* const itself = qobject_cast<QLabel*>(&widget)) labels.append(itself);
  for (QLabel* const label : labels) {
    if (!IsTooltip(*label)) label->setTextFormat(Qt::PlainText);
  }
}

// Whether there was a tooltip to show.
bool ShowTooltip(QWidget& widget, const QHelpEvent& event) {
  const QString text = TooltipAt(widget, event.pos());
  if (text.isEmpty()) return false;
  // Plain text would stand in one line, however long.
  QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal),
                     &widget, QRect(), widget.toolTipDuration());
  return true;
}

}  // namespace

PlainTexts::PlainTexts(QObject* parent) : QObject(parent) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool PlainTexts::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  auto& widget = *static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::Polish:
      MakePlain(widget);
      return false;
    case QEvent::ToolTip:
      return ShowTooltip(widget, *static_cast<QHelpEvent*>(event));
    default:
      return false;
  }
}

}  // namespace zentab::app

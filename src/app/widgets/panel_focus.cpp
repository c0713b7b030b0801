#include "app/widgets/panel_focus.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::app {
namespace {

constexpr int kHeight = 3;  // logical pixels
constexpr int kGap = 3;     // to the panel

}  // namespace

PanelFocus::PanelFocus(QWidget* frame, QList<QWidget*> panels)
    : QWidget(frame), panels_(std::move(panels)) {
  setObjectName(QStringLiteral("PanelFocus"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  for (QWidget* const panel : panels_) panel->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, &PanelFocus::Place);
  Place();
}

void PanelFocus::Place() {
  const QWidget* const focused = QApplication::focusWidget();
  const auto panel = std::find_if(panels_.cbegin(), panels_.cend(), [focused](const QWidget* each) {
    return focused != nullptr && each->isAncestorOf(focused);
  });
  setVisible(panel != panels_.cend());
  if (panel == panels_.cend()) return;
  const QPoint corner = (*panel)->mapTo(parentWidget(), QPoint());
  setGeometry(corner.x(), corner.y() - kGap - kHeight, (*panel)->width(), kHeight);
  raise();
}

bool PanelFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  return QWidget::eventFilter(watched, event);
}

void PanelFocus::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), editor::AccentOn(palette().color(QPalette::Window)));
}

}  // namespace zentab::app

#include "app/widgets/scrolling_frame.h"

#include <QEvent>
#include <QScreen>

namespace zentab::app {
namespace {

// What a window has around it: menu and status bar, its title and edges.
constexpr QSize kAround(32, 140);

}  // namespace

ScrollingFrame::ScrollingFrame(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(content);
}

QSize ScrollingFrame::minimumSizeHint() const {
  const QSize room = screen()->availableSize() - kAround;
  return widget()->minimumSizeHint().boundedTo(room);
}

bool ScrollingFrame::eventFilter(QObject* watched, QEvent* event) {
  const bool isHandled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return isHandled;
}

}  // namespace zentab::app

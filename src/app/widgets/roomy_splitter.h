#pragma once

#include <QEvent>
#include <QSplitter>

namespace zentab::app {

/// A splitter that tells its surroundings when what it holds needs more room, or less.
class RoomySplitter : public QSplitter {
 public:
  using QSplitter::QSplitter;

 protected:
  bool event(QEvent* event) override {
    const bool isHandled = QSplitter::event(event);
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return isHandled;
  }
};

}  // namespace zentab::app

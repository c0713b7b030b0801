#pragma once

#include <QScrollArea>

namespace zentab::app {

/// Holds what is in a window. It is no smaller than its content's least size, as a plain widget
/// would be, unless the screen has no room for that: then the content scrolls.
class ScrollingFrame : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the content over.
  ScrollingFrame(QWidget* content, QWidget* parent);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zentab::app

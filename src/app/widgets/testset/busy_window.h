#pragma once

#include <QPointer>
#include <QWidget>

namespace zentab::app {

/// While it lives the window shows the busy pointer and takes no command: code of a module runs,
/// which may let the window's events run in a loop of its own.
class BusyWindow {
 public:
  explicit BusyWindow(QWidget& window);
  ~BusyWindow();
  BusyWindow(const BusyWindow&) = delete;
  BusyWindow& operator=(const BusyWindow&) = delete;

 private:
  QWidget& window_;
  QPointer<QWidget> focus_;
};

}  // namespace zentab::app

#include "app/widgets/testset/busy_window.h"

#include <QApplication>

namespace zentab::app {

BusyWindow::BusyWindow(QWidget& window) : window_(window), focus_(QApplication::focusWidget()) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  window_.setEnabled(false);
}

BusyWindow::~BusyWindow() {
  window_.setEnabled(true);
  // A disabled control loses the focus.
  if (focus_ && focus_->window() == &window_) focus_->setFocus();
  QApplication::restoreOverrideCursor();
}

}  // namespace zentab::app

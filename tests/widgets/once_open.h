#pragma once

#include <QApplication>
#include <QTimer>
#include <memory>

namespace zentab::app {

/// Works on a modal dialog once it is open and `isReady`; a command may wait for files before it
/// opens one. Ends with what is returned.
template <class Dialog, class IsReady, class Work>
[[nodiscard]] std::unique_ptr<QTimer> OnceOpen(IsReady isReady, Work work) {
  auto timer = std::make_unique<QTimer>();
  QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [&timer = *timer, isReady, work] {
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !isReady(*dialog)) return;
    timer.stop();
    work(*dialog);
  });
  timer->start(1);
  return timer;
}

}  // namespace zentab::app

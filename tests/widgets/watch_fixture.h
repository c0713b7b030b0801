#pragma once

#include <QListView>
#include <QMenu>
#include <QScreen>
#include <functional>
#include <vector>

#include "widgets/chart_fixture.h"
#include "widgets/picture.h"

namespace zentab::app {

/// A plot that is drawn may ask for another drawing.
inline void Settle() {
  for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
}

/// Where the screen shows something else than the window would draw now, once nothing asks for a
/// drawing any more; an empty rectangle where it shows the same.
inline QRect StaleIn(QWidget& window) {
  Settle();
  const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
  for (auto* const plot : window.findChildren<QCustomPlot*>()) {
    if (plot->isVisible()) plot->replot(QCustomPlot::rpImmediateRefresh);
  }
  const QImage drawn = window.grab().toImage();
  return DifferenceOf(shown, drawn);
}

/// Whatever a command changes is on the screen afterwards, without anyone who moves the mouse, and
/// looks as in its picture.
class WatchFixture : public ChartFixture {
 protected:
  struct Step {
    const char* what;
    std::function<void()> take;
  };
  // Takes each step, and compares the screen with the window drawn anew, and what the step has
  // changed with its picture: a part of the window, and the dialog or menu in front of it.
  void Watch(const std::vector<Step>& steps) {
    QWidget& window = *made_->window;
    QImage after = PictureOf(window);
    for (const auto& [what, take] : steps) {
      const QImage before = after;
      take();
      const QString test = QLatin1String(QTest::currentTestFunction());
      const QString name = QStringLiteral("%1-%2").arg(test).arg(++taken_[test]);
      QWidget* const front = InFront();
      // A dialog may still read.
      if (IsTakingPictures()) QTest::qWait(front != nullptr ? 200 : 20);
      Settle();
      const auto areAsInPictures = [&] {
        after = PictureOf(window);
        const QRect changed = DifferenceOf(before, after);
        // A step that changes nothing would test nothing.
        if (changed.isEmpty() && front == nullptr) return false;
        // What a dialog shows in the window may come after the dialog.
        return IsAsInPictures(changed.isEmpty() ? QImage() : after.copy(changed), name) &&
               (front == nullptr || IsAsInPictures(PictureOf(*front), name + "-front"));
      };
      const bool isAsInPictures = QTest::qWaitFor(areAsInPictures, 10'000);
      QRect stale = StaleIn(window);
      if (front != nullptr) stale |= StaleIn(*front);
      QVERIFY2(stale.isEmpty(), qPrintable(QStringLiteral("%1: %2 × %3 at %4, %5")
                                               .arg(QLatin1String(what))
                                               .arg(stale.width())
                                               .arg(stale.height())
                                               .arg(stale.x())
                                               .arg(stale.y())));
      QVERIFY2(isAsInPictures, what);
    }
  }
  std::map<QString, int> taken_;  // pictures of each test

  [[nodiscard]] static QWidget* InFront() {
    QWidget* const popup = QApplication::activePopupWidget();
    return popup != nullptr ? popup : QApplication::activeModalWidget();
  }
  void Trigger(const char* action) {
    auto* const found = made_->Find<QAction>(action);
    if (found == nullptr) qFatal("there is no %s", action);
    found->trigger();
  }
  // The window with the texts as they are shipped.
  void Shipped() {
    made_->OpenIn({});
    made_->window->resize(1240, 820);
    made_->Activate();
  }
};

}  // namespace zentab::app

#include "app/widgets/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace zentab::app {
namespace {

// So much of the window has to lie on a screen that it can be seen and dragged.
constexpr int kReachable = 64;

// A damaged setting must not ask for a window that no memory can hold.
constexpr int kMostDesktops = 2;

// At least as much as the usual desktops draw around a window.
constexpr QSize kFrameAndTitle(16, 48);

bool IsReachable(const QRect& window) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&window](const QScreen* screen) {
    const QRect common = screen->availableGeometry() & window;
    return common.width() >= kReachable && common.height() >= kReachable &&
           window.top() >= screen->availableGeometry().top() - 1;
  });
}

}  // namespace

QSize SizeOnScreen(const QSize& designed, const QSize& available) {
  return designed.boundedTo(available - kFrameAndTitle);
}

void RestorePlacement(QWidget& window, const Placement& placement) {
  QRect place(window.pos(), window.size());
  const std::optional<int> left = PixelsFromTwips(placement.left);
  const std::optional<int> top = PixelsFromTwips(placement.top);
  if (left) place.moveLeft(*left);
  if (top) place.moveTop(*top);
  place.setWidth(std::max(PixelsFromTwips(placement.width).value_or(place.width()),
                          window.minimumSizeHint().width()));
  place.setHeight(std::max(PixelsFromTwips(placement.height).value_or(place.height()),
                           window.minimumSizeHint().height()));
  if (const QScreen* const screen = QGuiApplication::primaryScreen()) {
    place.setSize(place.size().boundedTo(kMostDesktops * screen->virtualSize()));
  }
  window.resize(place.size());
  if ((left || top) && IsReachable(place)) window.move(place.topLeft());
}

Placement PlacementOf(const QWidget& window) {
  const bool plain = !window.isMaximized() && !window.isFullScreen() && !window.isMinimized();
  const QRect place = plain ? QRect(window.pos(), window.size()) : window.normalGeometry();
  return {TwipsFromPixels(place.left()), TwipsFromPixels(place.top()),
          TwipsFromPixels(place.width()), TwipsFromPixels(place.height())};
}

}  // namespace zentab::app

#pragma once

#include <QSize>

#include "app/settings.h"

class QWidget;

namespace zentab::app {

/// The size of a window that nobody has placed yet: as designed, where the screen has that much
/// room beside the window's frame and title bar, which only the system knows and draws later.
[[nodiscard]] QSize SizeOnScreen(const QSize& designed, const QSize& available);

/// Brings the window to its stored rectangle; an edge without a usable value stays as designed.
/// A window that would lie outside every screen stays where it is.
void RestorePlacement(QWidget& window, const Placement& placement);

/// The window's rectangle: the one it has when it is not maximised.
[[nodiscard]] Placement PlacementOf(const QWidget& window);

}  // namespace zentab::app

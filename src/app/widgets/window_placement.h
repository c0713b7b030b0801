#pragma once

#include "app/settings.h"

class QWidget;

namespace zentab::app {

/// Brings the window to its stored rectangle; an edge without a usable value stays as designed.
/// A window that would lie outside every screen stays where it is.
void RestorePlacement(QWidget& window, const Placement& placement);

/// The window's rectangle: the one it has when it is not maximised.
[[nodiscard]] Placement PlacementOf(const QWidget& window);

}  // namespace zentab::app

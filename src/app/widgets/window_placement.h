#pragma once

#include "app/settings.h"

class QWidget;

namespace zentab::app {

/// Brings the window to its stored rectangle; an edge without a usable value stays as designed.
/// A window that would lie outside every screen stays where it is.
void RestorePlacement(QWidget& window, const Settings& settings);

/// Puts the window's rectangle into the settings: the one it has when it is not maximised.
void StorePlacement(const QWidget& window, Settings& settings);

}  // namespace zentab::app

#pragma once

#include "texts/ui_font.h"

class QWidget;

namespace zentab::app {

/// How much larger the user has the texts of all programs than a desktop begins with; 1 at least.
/// Sizes in pixels that hold text grow with it.
[[nodiscard]] double TextScale();

/// Gives the window and its controls the one font that the locale calls for, as much larger as the
/// user has texts.
void ApplyUiFont(QWidget& window, texts::UiFontChoice& choice);

}  // namespace zentab::app

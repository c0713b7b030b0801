#pragma once

#include "texts/ui_font.h"

class QWidget;

namespace zentab::app {

/// Gives the window and its controls the one font that the locale calls for.
void ApplyUiFont(QWidget& window, texts::UiFontChoice& choice);

}  // namespace zentab::app

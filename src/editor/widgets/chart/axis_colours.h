#pragma once

#include <qcustomplot.h>

namespace zentab::editor {

/// Lines, grid and texts of an axis in the colours and the font of its window.
void ColourAxis(QCPAxis& axis, const QPalette& colours, const QFont& font);

}  // namespace zentab::editor

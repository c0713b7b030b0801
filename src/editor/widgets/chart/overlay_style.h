#pragma once

#include <QPen>

namespace zentab::editor {

/// The line of a further curve in the chart, by its number from 0. Colours that the colour-blind
/// tell apart, with a contrast of 3 to the background, and dashes, which grey print keeps; each of
/// the first 42 has its own pair of them, and none is solid as the curve of the grid.
[[nodiscard]] QPen OverlayPen(int number, const QColor& background);

}  // namespace zentab::editor

#include "editor/widgets/chart/overlay_style.h"

#include <array>
#include <vector>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::editor {
namespace {

constexpr double kOverlayContrast = 3.0;
constexpr double kWidth = 1.5;  // logical pixels

// After M. Okabe and K. Ito, Color Universal Design (2008), without the blue of the grid's curve.
constexpr std::array<QRgb, 6> kColours = {0xFFD55E00, 0xFF009E73, 0xFFCC79A7,
                                          0xFFE69F00, 0xFF56B4E9, 0xFF7F7F7F};

// In widths of the line: dash, gap, dash...
const std::vector<QList<qreal>>& Dashes() {
  static const std::vector<QList<qreal>> dashes = {
      {6, 3}, {1.5, 2.5}, {8, 3, 1.5, 3}, {14, 4}, {8, 3, 1.5, 3, 1.5, 3}, {3, 3}, {14, 3, 4, 3}};
  return dashes;
}

}  // namespace

QPen OverlayPen(int number, const QColor& background) {
  const auto place = static_cast<std::size_t>(number);
  QPen pen(Contrasting(QColor(kColours[place % kColours.size()]), background, kOverlayContrast),
           kWidth);
  pen.setDashPattern(Dashes()[place % Dashes().size()]);
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

}  // namespace zentab::editor

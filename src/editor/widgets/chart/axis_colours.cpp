#include "editor/widgets/chart/axis_colours.h"

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::editor {
namespace {

constexpr double kLineContrast = 3.0;
constexpr double kGridContrast = 1.6;
constexpr double kSubGridContrast = 1.3;

}  // namespace

void ColourAxis(QCPAxis& axis, const QPalette& colours, const QFont& font) {
  const QColor text = colours.color(QPalette::Text);
  const QColor base = colours.color(QPalette::Base);
  const QPen pen(LineOn(base, text, kLineContrast));
  axis.setBasePen(pen);
  axis.setTickPen(pen);
  axis.setSubTickPen(pen);
  axis.setLabelColor(text);
  axis.setTickLabelColor(text);
  axis.setLabelFont(font);
  axis.setTickLabelFont(font);
  axis.grid()->setPen(QPen(LineOn(base, text, kGridContrast)));
  axis.grid()->setSubGridPen(QPen(LineOn(base, text, kSubGridContrast)));
}

}  // namespace zentab::editor

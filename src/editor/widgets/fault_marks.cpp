#include "editor/widgets/fault_marks.h"

#include <QPainter>

#include "editor/widgets/curve_grid_model.h"

namespace zentab::editor {
namespace {

constexpr double kMarkSide = 11.0;   // logical pixels
constexpr double kMarkMargin = 4.0;  // left of it
constexpr double kStroke = 1.5;      // of the sign inside
constexpr int kDarkBelow = 128;      // the lightness of a background

QColor Warning(const QColor& background) {
  return background.lightness() < kDarkBelow ? QColor(0xF5, 0xB0, 0x30) : QColor(0xB4, 0x53, 0x09);
}

// A triangle with an exclamation mark: a shape, as not everybody tells the colours apart.
void DrawMark(QPainter& painter, const QRectF& place, const QColor& colour, const QColor& sign) {
  const double middle = place.center().x();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(colour);
  painter.drawPolygon(QPolygonF({{middle, place.top()}, place.bottomRight(), place.bottomLeft()}));
  painter.setPen(QPen(sign, kStroke, Qt::SolidLine, Qt::FlatCap));
  const double height = place.height();
  painter.drawLine(QPointF(middle, place.top() + height * 0.32),
                   QPointF(middle, place.top() + height * 0.68));
  painter.drawLine(QPointF(middle, place.top() + height * 0.78),
                   QPointF(middle, place.top() + height * 0.92));
  painter.restore();
}

}  // namespace

void FaultMarks::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (!index.data(CurveGridModel::kFaultRole).toBool()) return;
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QColor background = option.palette.color(isSelected ? QPalette::Highlight : QPalette::Base);
  const QColor colour =
      isSelected ? option.palette.color(QPalette::HighlightedText) : Warning(background);
  const QRectF cell(option.rect);
  const QRectF place(cell.left() + kMarkMargin, cell.center().y() - kMarkSide / 2.0, kMarkSide,
                     kMarkSide - 1.0);
  DrawMark(*painter, place, colour, background);
}

}  // namespace zentab::editor

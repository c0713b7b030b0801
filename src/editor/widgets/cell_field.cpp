#include "editor/widgets/cell_field.h"

#include <QEvent>
#include <QPainter>
#include <limits>

#include "editor/widgets/chart/chart_colours.h"

namespace zentab::editor {
namespace {

constexpr int kFrame = 2;         // logical pixels
constexpr double kAccent = 0.12;  // of the background

}  // namespace

CellField::CellField(QWidget* parent) : QLineEdit(parent) {
  setObjectName(QStringLiteral("Text11"));
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setFrame(false);
  setMaxLength(std::numeric_limits<int>::max());
  ShowColours();
  hide();
}

void CellField::ShowColours() {
  const QColor base = parentWidget()->palette().color(QPalette::Base);
  const QColor own = Mix(base, AccentOn(base), kAccent);
  QPalette colours = palette();
  if (colours.color(QPalette::Base) == own) return;
  colours.setColor(QPalette::Base, own);
  setPalette(colours);
}

void CellField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowColours();
}

void CellField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  QPen pen(AccentOn(parentWidget()->palette().color(QPalette::Base)), kFrame);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.drawRect(
      QRectF(rect()).adjusted(kFrame / 2.0, kFrame / 2.0, -kFrame / 2.0, -kFrame / 2.0));
}

}  // namespace zentab::editor

#include "app/widgets/curve/beside_chart.h"

#include <QDialog>
#include <QScreen>
#include <algorithm>

namespace zentab::app {

void OpenBeside(QDialog& dialog, const QWidget& chart) {
  constexpr int kGap = 12;
  if (!dialog.testAttribute(Qt::WA_Resized)) dialog.adjustSize();
  const QPoint corner = chart.mapToGlobal(QPoint(0, 0));
  const QRect screen = chart.screen()->availableGeometry();
  const int left = std::max(corner.x() - kGap - dialog.width(), screen.left());
  const int top =
      std::clamp(corner.y(), screen.top(), std::max(screen.bottom() - dialog.height(), 0));
  dialog.move(left, top);
  dialog.open();
}

bool IsOpen(const QDialog* dialog) { return dialog != nullptr && dialog->isVisible(); }

}  // namespace zentab::app

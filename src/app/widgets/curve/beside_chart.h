#pragma once

class QDialog;
class QWidget;

namespace zentab::app {

/// Opens a dialog beside a part of its window, where the screen has the room, and returns.
void OpenBeside(QDialog& dialog, const QWidget& chart);

}  // namespace zentab::app

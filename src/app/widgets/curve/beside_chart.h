#pragma once

class QDialog;
class QWidget;

namespace zentab::app {

/// Opens a dialog beside a part of its window, where the screen has the room, and returns.
void OpenBeside(QDialog& dialog, const QWidget& chart);

/// Whether a dialog is there and has not been closed: one that was lives on for a while.
[[nodiscard]] bool IsOpen(const QDialog* dialog);

}  // namespace zentab::app

#include "editor/widgets/field_undo.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace zentab::editor {

bool PassesUndoOn(const QLineEdit& field, QKeyEvent& event) {
  const bool isCtrlY = event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
  const bool undoes = event.matches(QKeySequence::Undo);
  const bool redoes = event.matches(QKeySequence::Redo) || isCtrlY;
  const bool passes = (undoes && !field.isUndoAvailable()) || (redoes && !field.isRedoAvailable());
  if (passes) event.ignore();
  return passes;
}

}  // namespace zentab::editor

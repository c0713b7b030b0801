#include "editor/widgets/field_undo.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace zentab::editor {

bool TakesUndoKey(QLineEdit& field, QEvent& event) {
  const bool announced = event.type() == QEvent::ShortcutOverride;
  if (!announced && event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool undoes = key.matches(QKeySequence::Undo);
  const bool redoes = key.matches(QKeySequence::Redo) ||
                      (key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier);
  if (!undoes && !redoes) return false;
  const bool isOwn = undoes ? field.isUndoAvailable() : field.isRedoAvailable();
  event.setAccepted(isOwn);
  if (announced || !isOwn) return true;
  undoes ? field.undo() : field.redo();
  return true;
}

}  // namespace zentab::editor

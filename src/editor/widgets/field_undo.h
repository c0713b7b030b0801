#pragma once

class QEvent;
class QLineEdit;

namespace zentab::editor {

/// Of an event that is about to come to a field: whether it was a key for undo or redo, which is
/// dealt with. The field takes its own typing back, or makes it again, by Ctrl+Y as well; what it
/// has no step of goes to the window's history.
[[nodiscard]] bool TakesUndoKey(QLineEdit& field, QEvent& event);

}  // namespace zentab::editor

#pragma once

class QKeyEvent;
class QLineEdit;

namespace zentab::editor {

/// Of a key that is about to come to a field: whether it asks to undo or redo what the field has no
/// step of. The key is then refused on the field's behalf, so that it goes to the window's history.
[[nodiscard]] bool PassesUndoOn(const QLineEdit& field, QKeyEvent& event);

}  // namespace zentab::editor

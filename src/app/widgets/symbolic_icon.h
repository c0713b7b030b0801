#pragma once

#include <QIcon>
#include <QString>

namespace zentab::app {

/// An icon in the colour of the text on buttons, whatever the palette of the moment and the scale
/// of the screen. `name` is a file of icons/ without its suffix.
[[nodiscard]] QIcon SymbolicIcon(const QString& name);

}  // namespace zentab::app

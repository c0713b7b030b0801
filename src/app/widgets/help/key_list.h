#pragma once

#include <QMainWindow>
#include <QStringList>
#include <vector>

namespace zentab::app {

/// The shortcuts that a window has now, taken from its menus, buttons and fields themselves: for
/// each the way to the command ("View > Whole curve") and its keys.
[[nodiscard]] std::vector<QStringList> KeysOf(const QMainWindow& form);

}  // namespace zentab::app

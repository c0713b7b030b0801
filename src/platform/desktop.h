#pragma once

namespace zentab::platform {

/// Whether the user wants dark windows where a desktop does not give its own colours to programs:
/// the apps mode of Windows 10 and 11; false everywhere else.
[[nodiscard]] bool WantsDarkWindows();

/// The display that opens windows, by its name for Qt; null leaves the choice to Qt.
[[nodiscard]] const char* DisplayForWindows();

/// The display, by its name for Qt, on which reports and pictures are drawn without any window and
/// that knows the system's fonts.
[[nodiscard]] const char* DisplayWithoutWindows();

}  // namespace zentab::platform

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zentab::app {

/// Whether the program's arguments ask for work that needs no window.
[[nodiscard]] bool IsWindowless(const std::vector<std::string>& arguments);

/// Does that work: --report and --chart. There is an application of Qt's widgets, on any platform.
/// Gives the exit code: 0 done, 1 failed, 2 wrong usage; what went wrong was said.
[[nodiscard]] int RunWindowless(const std::vector<std::string>& arguments);

}  // namespace zentab::app

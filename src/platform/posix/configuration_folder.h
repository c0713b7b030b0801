#pragma once

#include <filesystem>

namespace zentab::platform {

/// The folder that `environmentVariable` names, else "zentab" in the user's configuration folder
/// (XDG_CONFIG_HOME, by default ~/.config). Empty when the user has neither. A relative name is one
/// in the present working folder: who reads and writes there asks once, before that changes.
[[nodiscard]] std::filesystem::path ConfigurationFolder(const char* environmentVariable);

}  // namespace zentab::platform

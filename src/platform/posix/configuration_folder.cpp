#include "platform/posix/configuration_folder.h"

#include <cstdlib>

namespace zentab::platform {

std::filesystem::path ConfigurationFolder(const char* environmentVariable) {
  const auto folderIn = [](const char* variable) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
  };
  if (auto named = folderIn(environmentVariable); !named.empty()) return named;
  if (const auto config = folderIn("XDG_CONFIG_HOME"); config.is_absolute()) {
    return config / "zentab";
  }
  if (const auto home = folderIn("HOME"); !home.empty()) return home / ".config" / "zentab";
  return {};
}

}  // namespace zentab::platform

#include "platform/posix/configuration_folder.h"

#include <cstdlib>

namespace zentab::platform {
namespace fs = std::filesystem;

std::filesystem::path ConfigurationFolder(const char* environmentVariable) {
  const auto folderIn = [](const char* variable) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? fs::path() : fs::path(value);
  };
  const auto absolute = [](const fs::path& folder) {
    std::error_code error;
    fs::path full = fs::absolute(folder, error);
    return error ? folder : full;
  };
  if (const fs::path named = folderIn(environmentVariable); !named.empty()) return absolute(named);
  // A relative one is to be ignored, by the rule that names the variable.
  if (const fs::path config = folderIn("XDG_CONFIG_HOME"); config.is_absolute()) {
    return config / "zentab";
  }
  if (const fs::path home = folderIn("HOME"); !home.empty()) {
    return absolute(home / ".config" / "zentab");
  }
  return {};
}

}  // namespace zentab::platform

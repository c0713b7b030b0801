#include "platform/settings_store.h"

#include "platform/ini_settings_store.h"
#include "platform/posix/configuration_folder.h"

namespace zentab::platform {

std::unique_ptr<SettingsStore> UserSettingsStore() {
  return SettingsStoreInFiles(UserDataFolder());
}

std::filesystem::path UserDataFolder() { return ConfigurationFolder("ZENTAB_SETTINGS_DIR"); }

}  // namespace zentab::platform

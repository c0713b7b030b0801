#pragma once

#include "platform/settings_store.h"

namespace zentab::platform {

/// Settings in one INI file an application in `folder`, which is made when it is needed; none where
/// `folder` is empty.
[[nodiscard]] std::unique_ptr<SettingsStore> SettingsStoreInFiles(std::filesystem::path folder);

}  // namespace zentab::platform

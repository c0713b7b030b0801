#include "platform/registry.h"

#include "platform/ini_registry.h"
#include "platform/posix/configuration_folder.h"

namespace zentab::platform {

std::unique_ptr<Registry> SystemRegistry() {
  return RegistryInFile(ConfigurationFolder("ZENTAB_REGISTRY_DIR"));
}

}  // namespace zentab::platform

#pragma once

#include <filesystem>

#include "platform/registry.h"

namespace zentab::platform {

/// The registry that the file "registry.ini" in `folder` makes up, read anew for each value; an
/// empty one where `folder` is empty.
[[nodiscard]] std::unique_ptr<Registry> RegistryInFile(std::filesystem::path folder);

}  // namespace zentab::platform

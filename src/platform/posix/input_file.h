#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

[[nodiscard]] FileStamp StampFrom(const struct stat& status);

/// FileLayer::Open of the system's files.
[[nodiscard]] std::error_code OpenInput(const std::filesystem::path& path,
                                        std::unique_ptr<InputFile>& file);

}  // namespace zentab::platform

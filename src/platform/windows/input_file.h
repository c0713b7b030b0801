#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

[[nodiscard]] FileStamp StampFrom(const BY_HANDLE_FILE_INFORMATION& about);

/// Opens a file so that others may read, write, replace and remove it meanwhile.
[[nodiscard]] HANDLE OpenShared(const std::filesystem::path& path, DWORD access);

/// FileLayer::Open of the system's files.
[[nodiscard]] std::error_code OpenInput(const std::filesystem::path& path,
                                        std::unique_ptr<InputFile>& file);

}  // namespace zentab::platform

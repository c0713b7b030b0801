#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// The bytes of a regular file. Fails with std::errc::file_too_large when there are more than
/// `largest`, and with what the system says.
[[nodiscard]] std::error_code ReadWholeFile(FileLayer& files, const std::filesystem::path& path,
                                            std::size_t largest, std::string& text);

}  // namespace zentab::platform

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace zentab::platform {

/// The bytes of a regular file of at most `largest` bytes; nothing when it is missing, larger,
/// no regular file or cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::filesystem::path& path,
                                                       std::size_t largest);

}  // namespace zentab::platform

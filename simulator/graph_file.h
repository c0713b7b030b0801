#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace simulator {

/// The bytes of a GRH file; nothing when it cannot be read, is larger than 1 MB, or differs in any
/// field from what a GRH file looks like.
[[nodiscard]] std::optional<std::string> ReadGraphFile(const std::filesystem::path& path);

}  // namespace simulator

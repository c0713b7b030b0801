#include "platform/file_text.h"

#include <fstream>

namespace zentab::platform {

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path, std::size_t largest) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size > largest) return std::nullopt;
  std::ifstream stream(path, std::ios::binary);
  std::string text(static_cast<std::size_t>(size), '\0');
  if (!stream || !stream.read(text.data(), static_cast<std::streamsize>(size))) {
    return std::nullopt;
  }
  return text;
}

}  // namespace zentab::platform

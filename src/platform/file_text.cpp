#include "platform/file_text.h"

#include "platform/file_reader.h"

namespace zentab::platform {

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path, std::size_t largest) {
  FileReader file(path);
  if (!file.IsOpen() || file.Size() > largest) return std::nullopt;
  return file.Read(0, file.Size());
}

}  // namespace zentab::platform

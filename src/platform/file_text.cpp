#include "platform/file_text.h"

#include "platform/file_reader.h"

namespace zentab::platform {

std::error_code ReadWholeFile(FileLayer& files, const std::filesystem::path& path,
                              std::size_t largest, std::string& text) {
  FileReader file(files, path);
  if (file.Error()) return file.Error();
  if (file.Size() > largest) return std::make_error_code(std::errc::file_too_large);
  return file.Read(0, file.Size(), text);
}

}  // namespace zentab::platform

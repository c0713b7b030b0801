#include <filesystem>
#include <system_error>

#include "platform/paths.h"

namespace zentab::platform {

std::filesystem::path ExecutablePath() {
  std::error_code error;
  std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : path;
}

}  // namespace zentab::platform

#include "app/demo_copy.h"

#include <algorithm>
#include <fstream>

#include "app/start_up.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

constexpr const char* kParts[] = {"demo", "instruments"};

}  // namespace

bool HasDemo(const std::filesystem::path& executable) {
  return std::ranges::all_of(kParts, [&](const char* part) {
    std::error_code unreadable;
    return std::filesystem::is_directory(executable.parent_path() / part, unreadable);
  });
}

std::error_code CopyDemo(const std::filesystem::path& executable,
                         const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  const fs::path installation = folder / "installation";
  std::error_code error;
  for (const char* const name : {"settings", "registry"}) {
    fs::create_directories(folder / name, error);
    if (error) return error;
  }
  for (const char* const part : kParts) {
    const fs::path from = fs::canonical(executable.parent_path() / part, error);
    if (!error) fs::copy(from, installation, fs::copy_options::recursive, error);
    if (error) return error;
  }
  std::ofstream registry(folder / "registry" / "registry.ini", std::ios::binary);
  registry << "[HKEY_LOCAL_MACHINE\\" << kSuiteKey << "]\n"
           << kSuiteValue << '=' << platform::ToText(installation) << '\n';
  registry.close();
  return registry ? std::error_code() : std::make_error_code(std::errc::io_error);
}

}  // namespace zentab::app

#include <windows.h>

#include <string>

#include "platform/paths.h"

namespace zentab::platform {

std::filesystem::path ExecutablePath() {
  std::wstring buffer(32768, L'\0');
  const DWORD length =
      GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  return std::filesystem::path(buffer.substr(0, length));
}

}  // namespace zentab::platform

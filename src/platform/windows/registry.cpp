#include "platform/registry.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/ansi_code_page.h"
#include "platform/ini_registry.h"
#include "platform/windows/named_folder.h"

namespace zentab::platform {
namespace {

class OpenKey {
 public:
  OpenKey(HKEY root, const std::string& path, REGSAM view) {
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_QUERY_VALUE | view, &key_) != ERROR_SUCCESS) {
      key_ = nullptr;
    }
  }
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  [[nodiscard]] HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

std::optional<std::string> ValueOf(const OpenKey& key, std::string_view valueName) {
  if (key.Get() == nullptr) return std::nullopt;
  std::array<BYTE, 1024> buffer{};
  DWORD size = buffer.size();
  DWORD type = 0;
  if (RegQueryValueExA(key.Get(), std::string(valueName).c_str(), nullptr, &type, buffer.data(),
                       &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  if (type == REG_DWORD && size == sizeof(std::uint32_t)) {
    std::uint32_t number = 0;
    std::memcpy(&number, buffer.data(), sizeof number);
    return std::to_string(number);
  }
  const std::string bytes(reinterpret_cast<const char*>(buffer.data()), size);
  return FromAnsi(std::string_view(bytes).substr(0, bytes.find('\0')));
}

class WindowsRegistry final : public Registry {
 public:
  std::optional<std::string> ReadRegistryValue(RootKey root, std::string_view keyPath,
                                               std::string_view valueName) const override {
    const HKEY rootKey = root == RootKey::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    // Behind this program's own view that of 32-bit programs, of which the suite is one.
    for (const REGSAM view : {REGSAM{0}, REGSAM{KEY_WOW64_32KEY}}) {
      auto value = ValueOf(OpenKey(rootKey, std::string(keyPath), view), valueName);
      if (value) return value;
    }
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<Registry> SystemRegistry() {
  std::filesystem::path named = NamedFolder(L"ZENTAB_REGISTRY_DIR");
  if (!named.empty()) return RegistryInFile(std::move(named));
  return std::make_unique<WindowsRegistry>();
}

}  // namespace zentab::platform

#include "platform/settings_store.h"

#include "platform/ini_settings_store.h"
#include "platform/windows/named_folder.h"
#include "platform/windows/wide_text.h"

namespace zentab::platform {
namespace {

std::wstring SectionKey(std::string_view application, std::string_view section) {
  return L"Software\\" + ToWide(application, CP_UTF8) + L"\\" + ToWide(section, CP_UTF8);
}

std::error_code SystemError(LSTATUS status) {
  return {static_cast<int>(status), std::system_category()};
}

class RegistrySettingsStore final : public SettingsStore {
 public:
  std::optional<std::string> Read(std::string_view application, std::string_view section,
                                  std::string_view key) const override {
    const std::wstring path = SectionKey(application, section);
    const std::wstring name = ToWide(key, CP_UTF8);
    DWORD bytes = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr,
                     &bytes) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                     value.data(), &bytes) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    return ToUtf8(std::wstring_view(value).substr(0, value.find(L'\0')));
  }

  std::error_code Save(std::string_view application, std::string_view section,
                       const std::vector<Setting>& settings) override {
    const std::wstring path = SectionKey(application, section);
    for (const Setting& setting : settings) {
      const std::wstring value = ToWide(setting.value, CP_UTF8);
      const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
      const LSTATUS status =
          RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), ToWide(setting.key, CP_UTF8).c_str(),
                          REG_SZ, value.c_str(), bytes);
      if (status != ERROR_SUCCESS) return SystemError(status);
    }
    return {};
  }
};

constexpr const wchar_t* kFolderVariable = L"ZENTAB_SETTINGS_DIR";

}  // namespace

std::unique_ptr<SettingsStore> UserSettingsStore() {
  std::filesystem::path named = NamedFolder(kFolderVariable);
  if (!named.empty()) return SettingsStoreInFiles(std::move(named));
  return std::make_unique<RegistrySettingsStore>();
}

std::filesystem::path UserDataFolder() {
  if (std::filesystem::path named = NamedFolder(kFolderVariable); !named.empty()) return named;
  const std::filesystem::path data = NamedFolder(L"LOCALAPPDATA");
  return data.empty() ? data : data / L"Zentab";
}

}  // namespace zentab::platform

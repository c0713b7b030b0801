#include "platform/ini_registry.h"

#include <charconv>
#include <cstdint>

#include "platform/file_text.h"
#include "platform/ini_text.h"

namespace zentab::platform {
namespace {

constexpr std::size_t kLongestValue = 1023;
constexpr std::string_view kNumberPrefix = "dword:";

std::optional<std::string> ValueText(std::string value) {
  if (value.starts_with(kNumberPrefix)) {
    std::uint32_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [last, error] =
        std::from_chars(value.data() + kNumberPrefix.size(), end, number, 16);
    if (error != std::errc() || last != end) return std::nullopt;
    return std::to_string(number);
  }
  if (value.size() > kLongestValue) return std::nullopt;
  return value.substr(0, value.find('\0'));
}

class IniRegistry final : public Registry {
 public:
  explicit IniRegistry(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::optional<std::string> ReadRegistryValue(RootKey root, std::string_view keyPath,
                                               std::string_view valueName) const override {
    std::string text;
    if (folder_.empty() ||
        ReadWholeFile(SystemFiles(), folder_ / "registry.ini", kLargestIniFile, text)) {
      return std::nullopt;
    }
    const std::string section =
        (root == RootKey::LocalMachine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\") +
        std::string(keyPath);
    std::optional<std::string> value = IniText(text).Find(section, valueName);
    return value ? ValueText(std::move(*value)) : std::nullopt;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace

std::unique_ptr<Registry> RegistryInFile(std::filesystem::path folder) {
  return std::make_unique<IniRegistry>(std::move(folder));
}

}  // namespace zentab::platform

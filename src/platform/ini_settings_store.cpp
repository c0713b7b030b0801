#include "platform/ini_settings_store.h"

#include "platform/file_text.h"
#include "platform/ini_text.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

// The file's text with the settings in it, and whether they are anything new.
std::error_code PutSettings(const fs::path& file, std::string_view section,
                            const std::vector<Setting>& settings, std::string& text,
                            bool& differs) {
  std::string former;
  const std::error_code error = ReadWholeFile(SystemFiles(), file, kLargestIniFile, former);
  if (error && error != std::errc::no_such_file_or_directory) return error;
  IniText ini(former);
  for (const Setting& setting : settings) {
    if (!ini.Set(section, setting.key, setting.value)) {
      return std::make_error_code(std::errc::invalid_argument);
    }
  }
  text = ini.Text();
  differs = error || former != text;
  return {};
}

class IniSettingsStore final : public SettingsStore {
 public:
  explicit IniSettingsStore(fs::path folder) : folder_(std::move(folder)) {}

  std::optional<std::string> Read(std::string_view application, std::string_view section,
                                  std::string_view key) const override {
    const fs::path file = FileOf(application);
    if (file.empty()) return std::nullopt;
    std::string text;
    if (ReadWholeFile(SystemFiles(), file, kLargestIniFile, text)) return std::nullopt;
    return IniText(std::move(text)).Find(section, key);
  }

  std::error_code Save(std::string_view application, std::string_view section,
                       const std::vector<Setting>& settings) override {
    const fs::path file = FileOf(application);
    if (file.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error) return error;
    std::string text;
    bool differs = false;
    error = PutSettings(file, section, settings, text, differs);
    if (error || !differs) return error;
    return ReplaceFile(SystemFiles(), file, [&](OutputFile& output) {
      // Again, under the lock: someone else may just have saved settings of their own.
      const std::error_code putting = PutSettings(file, section, settings, text, differs);
      return putting ? putting : output.Write(text);
    });
  }

 private:
  [[nodiscard]] fs::path FileOf(std::string_view application) const {
    return folder_.empty() ? folder_ : folder_ / ToPath(std::string(application) + ".ini");
  }

  fs::path folder_;
};

}  // namespace

std::unique_ptr<SettingsStore> SettingsStoreInFiles(fs::path folder) {
  return std::make_unique<IniSettingsStore>(std::move(folder));
}

}  // namespace zentab::platform

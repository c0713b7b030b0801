#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace zentab::platform {

struct Setting {
  std::string key;
  std::string value;
};

/// The per-user settings: texts by application, section and key; names differ in more than case.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text, or nothing when there is none or the store cannot be read.
  [[nodiscard]] virtual std::optional<std::string> Read(std::string_view application,
                                                        std::string_view section,
                                                        std::string_view key) const = 0;

  /// Stores the settings of one section together: all of them or, on an error, none where the
  /// platform allows it. What else the store holds stays as it is.
  [[nodiscard]] virtual std::error_code Save(std::string_view application, std::string_view section,
                                             const std::vector<Setting>& settings) = 0;
};

/// The user's store: one INI file an application in the folder that the environment variable
/// ZENTAB_SETTINGS_DIR names; without it Software\application\section of the current user's
/// registry on Windows, elsewhere such files in the user's configuration folder. A relative name is
/// that of a folder in what is the working folder now.
[[nodiscard]] std::unique_ptr<SettingsStore> UserSettingsStore();

/// The folder for what else the program keeps for its user: that of the INI files, on Windows
/// Zentab in the user's folder for the data of local applications, unless ZENTAB_SETTINGS_DIR names
/// another one. It need not exist; empty when the user has none.
[[nodiscard]] std::filesystem::path UserDataFolder();

}  // namespace zentab::platform

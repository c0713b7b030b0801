#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/settings_store.h"

namespace zentab::app {

/// A window's rectangle in twips, as the store's texts; empty where it was never saved.
struct Placement {
  std::string left;
  std::string top;
  std::string width;
  std::string height;
};

/// What the main window keeps between two starts, as the store's texts.
struct Settings {
  std::string tableName;  // the active table file
  std::string nomLoad1;   // the pickup field
  std::string absValues;  // "1": load levels are absolute
  Placement window;
};

/// Reads the settings, defaults where there are none. The table's name is read under the
/// executable's name, everything else under the program's title.
[[nodiscard]] Settings LoadSettings(const platform::SettingsStore& store,
                                    std::string_view executableName, std::string_view title);

/// Stores all of them under the program's title.
[[nodiscard]] std::error_code SaveSettings(platform::SettingsStore& store, std::string_view title,
                                           const Settings& settings);

/// Reads and stores where the exchange dialog was when it was last closed; at first it is in the
/// upper left corner.
[[nodiscard]] Placement LoadExchangePlacement(const platform::SettingsStore& store,
                                              std::string_view title);
[[nodiscard]] std::error_code SaveExchangePlacement(platform::SettingsStore& store,
                                                    std::string_view title,
                                                    const Placement& placement);

/// The window edge, in pixels of a 96 dpi screen, that a setting in twips (1/1440 inch) stands
/// for; nothing when the text is no number or no screen could be that large.
[[nodiscard]] std::optional<int> PixelsFromTwips(std::string_view setting);

/// The setting for a window edge in pixels of a 96 dpi screen.
[[nodiscard]] std::string TwipsFromPixels(int pixels);

}  // namespace zentab::app

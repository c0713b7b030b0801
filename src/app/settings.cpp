#include "app/settings.h"

#include <array>
#include <cmath>
#include <vector>

#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kSection = "Settings";
constexpr int kTwipsPerPixel = 15;
constexpr double kLargestEdge = 100000.0;  // pixels

struct SettingRow {
  std::string_view key;
  bool underExecutableName;  // where it is read; all are written under the title
  std::string_view readSection;
  std::string_view fallback;
  std::string Settings::*field;
};

constexpr std::array<SettingRow, 7> kSettings = {{
    {"TableName", true, "settings", "relayTables.dat", &Settings::tableName},
    {"NomLoad1", false, kSection, "1", &Settings::nomLoad1},
    {"AbsValues", false, kSection, "0", &Settings::absValues},
    {"F1Left", false, kSection, "", &Settings::left},
    {"F1Top", false, kSection, "", &Settings::top},
    {"F1Width", false, kSection, "", &Settings::width},
    {"F1Height", false, kSection, "", &Settings::height},
}};

}  // namespace

Settings LoadSettings(const platform::SettingsStore& store, std::string_view executableName,
                      std::string_view title) {
  Settings settings;
  for (const SettingRow& row : kSettings) {
    settings.*row.field =
        store.Read(row.underExecutableName ? executableName : title, row.readSection, row.key)
            .value_or(std::string(row.fallback));
  }
  return settings;
}

std::error_code SaveSettings(platform::SettingsStore& store, std::string_view title,
                             const Settings& settings) {
  std::vector<platform::Setting> rows;
  for (const SettingRow& row : kSettings) {
    rows.push_back({std::string(row.key), settings.*row.field});
  }
  return store.Save(title, kSection, rows);
}

std::optional<int> PixelsFromTwips(std::string_view setting) {
  const std::optional<double> twips = texts::WholeNumber(texts::SetDecimalSeparator(setting, "."));
  if (!twips || std::abs(*twips) > kLargestEdge * kTwipsPerPixel) return std::nullopt;
  return static_cast<int>(std::lround(*twips / kTwipsPerPixel));
}

std::string TwipsFromPixels(int pixels) { return std::to_string(pixels * kTwipsPerPixel); }

}  // namespace zentab::app

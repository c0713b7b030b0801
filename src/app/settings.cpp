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

constexpr std::array<SettingRow, 3> kSettings = {{
    {"TableName", true, "settings", "relayTables.dat", &Settings::tableName},
    {"NomLoad1", false, kSection, "1", &Settings::nomLoad1},
    {"AbsValues", false, kSection, "0", &Settings::absValues},
}};

struct EdgeRow {
  std::string_view key;
  std::string_view fallback;
  std::string Placement::*edge;
};
using EdgeRows = std::array<EdgeRow, 4>;

constexpr EdgeRows kMainWindow = {{
    {"F1Left", "", &Placement::left},
    {"F1Top", "", &Placement::top},
    {"F1Width", "", &Placement::width},
    {"F1Height", "", &Placement::height},
}};

constexpr std::string_view kExchangeSection = "F2Settings";
constexpr EdgeRows kExchangeDialog = {{
    {"Height", "6720", &Placement::height},
    {"Width", "9270", &Placement::width},
    {"Left", "0", &Placement::left},
    {"Top", "0", &Placement::top},
}};

Placement LoadEdges(const platform::SettingsStore& store, std::string_view title,
                    std::string_view section, const EdgeRows& rows) {
  Placement placement;
  for (const EdgeRow& row : rows) {
    placement.*row.edge = store.Read(title, section, row.key).value_or(std::string(row.fallback));
  }
  return placement;
}

void AddEdges(std::vector<platform::Setting>& settings, const EdgeRows& rows,
              const Placement& placement) {
  for (const EdgeRow& row : rows) settings.push_back({std::string(row.key), placement.*row.edge});
}

}  // namespace

Settings LoadSettings(const platform::SettingsStore& store, std::string_view executableName,
                      std::string_view title) {
  Settings settings;
  for (const SettingRow& row : kSettings) {
    settings.*row.field =
        store.Read(row.underExecutableName ? executableName : title, row.readSection, row.key)
            .value_or(std::string(row.fallback));
  }
  settings.window = LoadEdges(store, title, kSection, kMainWindow);
  return settings;
}

std::error_code SaveSettings(platform::SettingsStore& store, std::string_view title,
                             const Settings& settings) {
  std::vector<platform::Setting> rows;
  rows.reserve(std::size(kSettings));
  for (const SettingRow& row : kSettings) {
    rows.push_back({std::string(row.key), settings.*row.field});
  }
  AddEdges(rows, kMainWindow, settings.window);
  return store.Save(title, kSection, rows);
}

Placement LoadExchangePlacement(const platform::SettingsStore& store, std::string_view title) {
  return LoadEdges(store, title, kExchangeSection, kExchangeDialog);
}

std::error_code SaveExchangePlacement(platform::SettingsStore& store, std::string_view title,
                                      const Placement& placement) {
  std::vector<platform::Setting> rows;
  AddEdges(rows, kExchangeDialog, placement);
  return store.Save(title, kExchangeSection, rows);
}

std::optional<int> PixelsFromTwips(std::string_view setting) {
  const std::optional<double> twips = texts::WholeNumber(texts::SetDecimalSeparator(setting, "."));
  if (!twips || std::abs(*twips) > kLargestEdge * kTwipsPerPixel) return std::nullopt;
  return static_cast<int>(std::lround(*twips / kTwipsPerPixel));
}

std::string TwipsFromPixels(int pixels) { return std::to_string(pixels * kTwipsPerPixel); }

}  // namespace zentab::app

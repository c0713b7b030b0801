#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace zentab::test {

/// File names of the simulated instruments' modules.
inline constexpr std::string_view kCurrentModule = "CURR_API" MODULE_SUFFIX;
inline constexpr std::string_view kVoltageModule = "VOLT_API" MODULE_SUFFIX;

/// Says what the simulated instrument of data/`kind` does.
inline void SetInstrument(const std::filesystem::path& installation, std::string_view kind,
                          std::string_view text) {
  const std::filesystem::path folder = installation / "data" / kind;
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "instrument.txt", std::ios::binary) << text;
}

/// Makes a folder an installation with both simulated instruments.
inline void InstallSimulators(const std::filesystem::path& installation) {
  for (const std::string_view module : {kCurrentModule, kVoltageModule}) {
    std::filesystem::copy_file(std::filesystem::path(MODULES) / module, installation / module);
  }
  SetInstrument(installation, "current", "pickup = 0.5\n");
  SetInstrument(installation, "voltage", "pickup = 110.25\n");
}

}  // namespace zentab::test

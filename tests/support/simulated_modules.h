#pragma once

#include <filesystem>
#include <string_view>

namespace zentab::test {

/// File names of the simulated instruments' modules.
inline constexpr std::string_view kCurrentModule = "CURR_API" MODULE_SUFFIX;
inline constexpr std::string_view kVoltageModule = "VOLT_API" MODULE_SUFFIX;

/// Says what the simulated instrument of data/`kind` does.
void SetInstrument(const std::filesystem::path& installation, std::string_view kind,
                   std::string_view text);

/// Makes a folder an installation with both simulated instruments.
void InstallSimulators(const std::filesystem::path& installation);

}  // namespace zentab::test

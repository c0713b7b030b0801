#include "support/simulated_modules.h"

#include <fstream>

namespace zentab::test {

void SetInstrument(const std::filesystem::path& installation, std::string_view kind,
                   std::string_view text) {
  const std::filesystem::path folder = installation / "data" / kind;
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "instrument.txt", std::ios::binary) << text;
}

void InstallSimulators(const std::filesystem::path& installation) {
  for (const std::string_view module : {kCurrentModule, kVoltageModule}) {
    std::filesystem::copy_file(std::filesystem::path(MODULES) / module, installation / module);
  }
  SetInstrument(installation, "current", "pickup = 0.5\n");
  SetInstrument(installation, "voltage", "pickup = 110.25\n");
}

}  // namespace zentab::test

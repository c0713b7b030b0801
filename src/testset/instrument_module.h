#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "testset/instrument_profile.h"

namespace zentab::testset {

/// The time-test module of an instrument. File and folder names are given with backslashes,
/// relative to the installation folder, in the system's single-byte code page; the module finds
/// them. Every call makes that folder the working folder and leaves it so; what else the module
/// does to the process (platform::ProcessState) ends with the call.
class InstrumentModule {
 public:
  virtual ~InstrumentModule() = default;

  /// Opens the test's files in a data folder; 1 when that succeeded.
  [[nodiscard]] virtual std::int32_t OpenFiles(const std::string& dataFolder) = 0;
  /// The pickup value of the open test, in amperes or volts.
  [[nodiscard]] virtual float GetStartUp() = 0;
  /// Closes the test's files; what it returns has no agreed meaning.
  [[nodiscard]] virtual std::int32_t CloseFiles() = 0;
  /// Makes a GRH file the test's active reference graph; what it returns has no agreed meaning.
  [[nodiscard]] virtual std::int32_t SetRefgraph(const std::string& file) = 0;
};

/// A module, or why there is none (UTF-8, one line).
struct LoadedModule {
  std::unique_ptr<InstrumentModule> module;
  std::string failure;
};

/// Loads the module of a profile: CURR_API.DLL with the export names of the profile on Windows,
/// elsewhere CURR_API.so with the same names less the leading "_" and all from the "@" on. It is
/// taken from the installation folder, and where that has none, from where the system looks. A
/// module that lacks an export is refused as a whole.
[[nodiscard]] LoadedModule LoadInstrumentModule(const InstrumentProfile& profile,
                                                const std::filesystem::path& installFolder);

}  // namespace zentab::testset

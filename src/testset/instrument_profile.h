#pragma once

#include <string_view>

#include "tables/curve_table_entry.h"

namespace zentab::testset {

/// The names under which a module exports its operations.
struct ModuleExports {
  std::string_view openFiles;
  std::string_view getStartUp;
  std::string_view closeFiles;
  std::string_view setRefgraph;
};

/// What is fixed about an instrument kind. The third choice has no module of its own.
struct InstrumentProfile {
  std::string_view library;  // the module's file name without suffix; empty: no module
  std::string_view dataFolder;
  ModuleExports exports;  // as on Windows: _NAME@BYTES
  // Templates of the event log; a value may follow.
  std::string_view selectedLine;
  std::string_view openLine;
  std::string_view pickupLine;
  std::string_view isOpenLine;
  std::string_view closeLine;
};

/// The profile of Current, Voltage or the third choice.
[[nodiscard]] const InstrumentProfile& ProfileOf(tables::Instrument kind);

}  // namespace zentab::testset

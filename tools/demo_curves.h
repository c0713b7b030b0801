#pragma once

#include <string>
#include <vector>

#include "tables/curve_table_entry.h"

namespace zentab::tools {

/// The curves of the demo library, computed from the published formulas.
[[nodiscard]] std::vector<tables::CurveTableEntry> DemoCurves();

/// The bytes of the table file that holds them.
[[nodiscard]] std::string DemoLibrary();

}  // namespace zentab::tools

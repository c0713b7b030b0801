#pragma once

#include <string>

namespace zentab::texts {

/// What is said in and about the chart.
struct ChartTexts {
  std::string pickupLine = "Pickup";
  std::string limitsTitle = "Limits of the axes";
  std::string limitsFrom = "%1, from:";  // "%1": what the axis shows
  std::string limitsTo = "to:";
  std::string limitsHint = "Empty fields: as far as the curve reaches";
};

}  // namespace zentab::texts

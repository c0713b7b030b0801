#pragma once

#include <string>

namespace zentab::texts {

/// What is said in and about the chart.
struct ChartTexts {
  std::string pickupLine = "Pickup";
  std::string point = "Point %1";  // by its row's number
  std::string multiples = "%1 × pickup";
  std::string absolute = "%1 A or V";  // where no instrument says which
  std::string noTime = "beside the curve";
  std::string gridCurve = "Table in the grid";
  std::string noPickup = "%1 (not shown: the pickup value is missing)";  // "%1": a curve's name
  std::string noCurve = "%1 (not shown: it has no two points)";
  std::string reference = "%1 (reference)";
  std::string difference = "Difference (%)";
  std::string chooseCurves = "Curves of %1";  // a file
  std::string limitsTitle = "Limits of the axes";
  std::string limitsFrom = "%1, from:";  // "%1": what the axis shows
  std::string limitsTo = "to:";
  std::string limitsHint = "Empty fields: as far as the curve reaches";
};

}  // namespace zentab::texts

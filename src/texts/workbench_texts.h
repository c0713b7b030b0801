#pragma once

#include <string>

namespace zentab::texts {

/// What the import of a time test with preview says, and what fields for equations say; "%1" and
/// so on are filled in.
struct WorkbenchTexts {
  std::string source = "%1, %2: %3 points";  // the file, its date, how many
  std::string sourceOne = "%1, %2: %3 point";
  std::string older = "Older than the result imported last (%1, %2)";  // its file and date
  std::string reading = "Reading the time test…";
  std::string measured = "Measured";
  std::string timeouts = "Time&outs from (%1)";
  std::string difference = "&Difference type";
  std::string filter = "&Filter type";
  std::string mean = "&Mean";
  std::string legendRemoved = "Removed";
  std::string legendShaped = "After filter and mean";
  std::string seconds = "s";
  std::string milliseconds = "ms";
  std::string timeoutTip =
      "From this time on a point did not trip; below 1: from 99 % of the longest time. OK imports "
      "with it this once.";
  std::string left = "%1 points";
  std::string leftOne = "%1 point";
  std::string removed = "%1 removed";
  std::string moved = "%1 moved";
  std::string noValue = "%1 without a value";
  std::string levelIs = "from %1";  // the level in use, with its unit
  std::string noTimeout = "The timeout is a number from 0 up";
  std::string equations = "&Equations";
  std::string differenceEquations = "Difference";
  std::string filterEquations = "Filter";
  std::string valueEquations = "Mean";
  std::string noEquation = "built in";
  std::string equation = "E&quation %1";
  std::string tryIt = "&Try";
  std::string write = "&Write to the catalogue";
  std::string revert = "&Revert";
  std::string written = "Written to %1";
  std::string notWritten = "Not written to %1";
  std::string unwritten =
      "%1 is not in the catalogue yet: write it or revert it before the import.";
  std::string cannotKeep = "A catalogue cannot keep a closing curly bracket";
  std::string fault = "Character %2: %1";
  std::string faultAtEnd = "At the end: %1";
  std::string unknownName = "%1 is no variable of this equation; it counts as 0";
  std::string arguments = "%1: %2";  // a function with its arguments, and its meaning
  std::string domain = "Domain: %1";
  std::string timeOfPoint = "time of the point";
  std::string timeBefore = "time of the point before it";
  std::string timeBeforeThat = "time of the point before that";
  std::string loadOfPoint = "load of the point";
  std::string loadBefore = "load of the point before it";
  std::string loadBeforeThat = "load of the point before that";
  std::string numberOfPoint = "number of the point, from 1";
  std::string countOfPoints = "number of points in the list";
  std::string shortestTime = "shortest time of all points";
  std::string longestTime = "longest time of all points";
  std::string smallestLoad = "smallest load of all points";
  std::string largestLoad = "largest load of all points";
  std::string load = "load, in the unit of the table";
  std::string pickup = "pickup value";
  std::string multiplier = "time multiplier";
};

}  // namespace zentab::texts

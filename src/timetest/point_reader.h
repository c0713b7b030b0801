#pragma once

#include <optional>
#include <vector>

#include "timetest/measured_points.h"
#include "timetest/result_reader.h"

namespace zentab::timetest {

/// How the absolute loads and the milliseconds of a result file become those of the grid.
struct ReadingModes {
  bool absoluteValues = false;  // else loads are divided by the pickup value
  bool milliseconds = false;    // else times are divided by 1000
  double pickup = 0.0;          // one that cannot divide a load, as 0, leaves it as read
};

struct ReadPoints {
  std::vector<MeasuredPoint> points;  // in the order of their numbers
  Extremes extremes;                  // over all of them
};

/// All points of a time test: what ReadSectionEntry gives for the keys "1", "2" and so on until
/// the first that is missing or empty, from one reading of the file. The load is the text before
/// the first tab, the time that up to the next; a text that is no number is 0. Nothing when
/// `progress` stopped it. A file that cannot be read has no points.
[[nodiscard]] std::optional<ReadPoints> ReadTimeTest(const ResultSource& source,
                                                     const ReadingModes& modes,
                                                     ProgressMeter progress);

}  // namespace zentab::timetest

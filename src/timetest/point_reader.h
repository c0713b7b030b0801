#pragma once

#include <system_error>
#include <vector>

#include "platform/file_layer.h"
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
/// the first tab, the time that up to the next; a text that is no number is 0. A file that
/// is missing has no points. Fails with FileError::GivenUp when `progress` stopped it, and with
/// what the system says when the file cannot be read to its end.
[[nodiscard]] std::error_code ReadTimeTest(platform::FileLayer& files, const ResultSource& source,
                                           const ReadingModes& modes, ProgressMeter progress,
                                           ReadPoints& read);

}  // namespace zentab::timetest

#include "timetest/difference_measure.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zentab::timetest {
namespace {

constexpr double kTimeoutMeasure = 10'000.0;

double SecondDifference(double t2, double t1, double t0) {
  const double difference = (t2 - t1) - (t1 - t0);
  if (std::isfinite(difference)) return difference;
  // Of times near the largest number: a sum of quarters has room, and is as large as can be told.
  const double quarter = (t2 / 4 - t1 / 4) - (t1 / 4 - t0 / 4);
  constexpr double kLargest = std::numeric_limits<double>::max();
  return std::clamp(quarter, -kLargest / 4, kLargest / 4) * 4;
}

}  // namespace

bool MeasureDifferences(std::vector<MeasuredPoint>& points, double timeoutLevel,
                        PointEquation* equation, ProgressMeter progress) {
  const std::size_t count = points.size();
  for (std::size_t at = 2; at < count; ++at) {
    MeasuredPoint& middle = points[at - 1];
    const MeasuredPoint& before = points[at - 2];
    const MeasuredPoint& after = points[at];
    const std::optional<double> difference =
        equation == nullptr ? SecondDifference(before.time, middle.time, after.time)
                            : equation->Evaluate({count, at + 1, after, middle, before});
    if (difference) middle.difference = std::abs(*difference);
    if (middle.time >= timeoutLevel) middle.difference = kTimeoutMeasure;
    if (!progress.Step(at, count)) return false;
  }
  return true;
}

}  // namespace zentab::timetest

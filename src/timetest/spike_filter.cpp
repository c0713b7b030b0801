#include "timetest/spike_filter.h"

#include <algorithm>

namespace zentab::timetest {
namespace {

struct Triple {
  const MeasuredPoint& before;
  MeasuredPoint& middle;
  const MeasuredPoint& after;
};

// Each rule says whether the middle point stays.

bool ApplyBuiltIn(int type, const Triple& triple, double timeoutLevel) {
  double& time = triple.middle.time;
  if (time >= timeoutLevel) return false;
  const auto [low, high] = std::minmax(triple.before.time, triple.after.time);
  if (type == 2) return time >= low && time <= high;
  if (type == 3) time = std::clamp(time, low, high);
  return true;
}

bool ApplyType(int type, const Triple& triple, double timeoutLevel) {
  if (type < 1 || type > 6) return true;
  if (type <= 3) return ApplyBuiltIn(type, triple, timeoutLevel);
  const double shortest = std::min({triple.before.time, triple.middle.time, triple.after.time});
  return shortest > timeoutLevel || ApplyBuiltIn(type - 3, triple, timeoutLevel);
}

bool ApplyEquation(PointEquation& equation, const Triple& triple, std::size_t count,
                   std::size_t index) {
  const std::optional<double> time =
      equation.Evaluate({count, index, triple.after, triple.middle, triple.before});
  if (!time) return true;
  if (*time < 0.0) return false;
  triple.middle.time = *time;
  return true;
}

}  // namespace

bool FilterSpikes(std::vector<MeasuredPoint>& points, std::int16_t type, double timeoutLevel,
                  PointEquation* equation, ProgressMeter progress, StageEffect* effect) {
  if (points.size() < 3) return true;
  // The list so far is [0, kept) and, behind it, the middle point and all from `at` on.
  std::size_t kept = 1;
  MeasuredPoint middle = points[1];
  for (std::size_t at = 2; at < points.size(); ++at) {
    const MeasuredPoint asFound = middle;
    const Triple triple = {points[kept - 1], middle, points[at]};
    const std::size_t count = kept + 1 + points.size() - at;
    const bool stays = equation == nullptr ? ApplyType(type, triple, timeoutLevel)
                                           : ApplyEquation(*equation, triple, count, kept + 2);
    if (effect != nullptr && !stays) effect->removed.push_back(asFound);
    if (effect != nullptr && stays && middle.time != asFound.time) ++effect->moved;
    if (stays) points[kept++] = middle;
    middle = points[at];
    if (!progress.Step(at, points.size())) return false;
  }
  points[kept++] = middle;
  points.resize(kept);
  return true;
}

}  // namespace zentab::timetest

#include "timetest/timeout_pruning.h"

#include "texts/number_text.h"

namespace zentab::timetest {

double TimeoutLevel(std::string_view catalogueText, double tMax) {
  const double level =
      texts::LeadingNumber(texts::SetDecimalSeparator(catalogueText, ".")).value_or(0.0);
  return level < 1.0 ? tMax * 0.99 : level;
}

void PruneTimeouts(std::vector<MeasuredPoint>& points, double timeoutLevel, StageEffect* effect) {
  if (points.size() < 3) return;
  const auto isTimeout = [&](std::size_t at) { return !(points[at].time < timeoutLevel); };
  bool hasTripped = false;
  std::size_t kept = 1;
  const std::size_t last = points.size() - 1;
  for (std::size_t at = 1; at < last; ++at) {
    if (!isTimeout(at)) {
      hasTripped = true;
    } else if (hasTripped || isTimeout(at + 1)) {
      if (effect != nullptr) effect->removed.push_back(points[at]);
      continue;
    }
    points[kept++] = points[at];
  }
  points[kept++] = points[last];
  points.resize(kept);
}

}  // namespace zentab::timetest

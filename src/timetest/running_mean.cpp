#include "timetest/running_mean.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "timetest/wide_sums.h"

namespace zentab::timetest {
namespace {

// Sums of as many windows at a time as keep the adders of the processor busy.
constexpr std::size_t kMeanLanes = 16;
// Wider windows take noticeably longer.
constexpr std::size_t kUsualWidth = 64;

// The exponent of the last binary digit that is set.
int LastDigit(double number) {
  int exponent = 0;
  const double fraction = std::frexp(number, &exponent);
  auto digits = static_cast<std::uint64_t>(std::ldexp(std::abs(fraction), 53));
  int last = exponent - 53;
  for (; digits % 2 == 0; digits /= 2) ++last;
  return last;
}

// Whether all sums of up to `width` of the times fit a double without rounding.
bool AddsExactly(const std::vector<double>& times, std::size_t width) {
  int last = std::numeric_limits<int>::max();
  double largest = 0.0;
  for (const double time : times) {
    if (time == 0.0) continue;
    last = std::min(last, LastDigit(time));
    largest = std::max(largest, std::abs(time));
    // An overflow makes both sides infinite.
    if (!(largest * static_cast<double>(width) < std::ldexp(1.0, last + 53))) return false;
  }
  return true;
}

// The mean of `count` times whose sum is `sum`. Where that lies beyond the range of a double, which
// no mean does, they are added as parts of it.
double Mean(const double* times, std::size_t count, double sum) {
  const auto terms = static_cast<double>(count);
  if (std::isfinite(sum)) return sum / terms;
  constexpr int kRoom = 20;  // bits; a mean has fewer terms than 2^16
  double parts = 0.0;
  for (std::size_t at = 0; at < count; ++at) parts += std::ldexp(times[at], -kRoom);
  const auto [least, greatest] = std::minmax_element(times, times + count);
  // The division may round beyond the greatest time.
  const double mean = std::ldexp(parts / terms, kRoom);
  return std::clamp(mean, *least, *greatest);
}

// Puts the mean of times (at - width, at] into each point from `at` on, up to kMeanLanes of them.
void AverageLanes(std::vector<MeasuredPoint>& points, const std::vector<double>& times,
                  std::size_t at, std::size_t width) {
  const std::size_t lanes = std::min(kMeanLanes, points.size() - at);
  const double* const oldest = times.data() + at + 1 - width;
  std::array<double, kMeanLanes> sums{};
  if (lanes == kMeanLanes) {
    for (std::size_t term = 0; term < width; ++term) {
      for (std::size_t lane = 0; lane < kMeanLanes; ++lane) sums[lane] += oldest[term + lane];
    }
  } else {
    for (std::size_t term = 0; term < width; ++term) {
      for (std::size_t lane = 0; lane < lanes; ++lane) sums[lane] += oldest[term + lane];
    }
  }
  for (std::size_t lane = 0; lane < lanes; ++lane) {
    points[at + lane].time = Mean(oldest + lane, width, sums[lane]);
  }
}

}  // namespace

bool AverageTimes(std::vector<MeasuredPoint>& points, int width, ProgressMeter progress) {
  if (width <= 1) return true;
  std::vector<double> times;
  times.reserve(points.size());
  for (const MeasuredPoint& point : points) times.push_back(point.time);

  const auto terms = static_cast<std::size_t>(width);
  const std::size_t beginnings = std::min(terms, times.size());
  double sum = 0.0;
  for (std::size_t at = 0; at < beginnings; ++at) {
    sum += times[at];
    points[at].time = Mean(times.data(), at + 1, sum);
  }
  const bool slides = AddsExactly(times, terms);
  std::optional<WideSums> wide;
  if (!slides && WideSums::CanAdd(times, terms)) wide.emplace(times, terms);
  const bool isSingle = slides || wide;
  const std::size_t step = isSingle ? 1 : kMeanLanes;
  const std::size_t effort = isSingle ? 1 : 1 + terms / kUsualWidth;
  for (std::size_t at = beginnings; at < times.size(); at += step) {
    if (slides) {
      // The oldest first: with one term more than the width the sum could be rounded.
      sum = sum - times[at - terms] + times[at];
      points[at].time = sum / static_cast<double>(terms);
    } else if (wide) {
      const std::size_t first = at + 1 - terms;
      points[at].time = Mean(times.data() + first, terms, wide->Of(first));
    } else {
      AverageLanes(points, times, at, terms);
    }
    if (!progress.Step(at, times.size(), effort)) return false;
  }
  return true;
}

bool TransformTimes(std::vector<MeasuredPoint>& points, PointEquation& equation,
                    ProgressMeter progress) {
  const std::size_t count = points.size();
  for (std::size_t at = 0; at < count; ++at) {
    const MeasuredPoint& before = points[at < 1 ? 0 : at - 1];
    const MeasuredPoint& beforeThat = points[at < 2 ? 0 : at - 2];
    const std::optional<double> time =
        equation.Evaluate({count, at + 1, points[at], before, beforeThat});
    if (time) points[at].time = *time;
    if (!progress.Step(at, count)) return false;
  }
  return true;
}

}  // namespace zentab::timetest

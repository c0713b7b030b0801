#include "curves/thinning.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "curves/polyline_choice.h"

namespace zentab::curves {
namespace {

constexpr std::size_t kStretches = 1024;

Places PlacesOf(const TableCurve& curve) {
  Places places;
  places.logarithmic = curve.IsLogarithmic();
  places.x.reserve(curve.Points().size());
  places.y.reserve(curve.Points().size());
  for (const Point& point : curve.Points()) {
    places.x.push_back(places.logarithmic ? std::log(point.load) : point.load);
    places.y.push_back(places.logarithmic ? std::log(point.time) : point.time);
  }
  return places;
}

// The place nearest to the line of least squares through a stretch.
std::size_t MiddleOf(const Places& places, std::size_t from, std::size_t to) {
  const auto count = static_cast<double>(to - from);
  double x = 0.0;
  double y = 0.0;
  for (std::size_t at = from; at < to; ++at) {
    x += places.x[at];
    y += places.y[at];
  }
  x /= count;
  y /= count;
  double xx = 0.0;
  double xy = 0.0;
  for (std::size_t at = from; at < to; ++at) {
    xx += (places.x[at] - x) * (places.x[at] - x);
    xy += (places.x[at] - x) * (places.y[at] - y);
  }
  const double slope = xx > 0.0 ? xy / xx : 0.0;
  const auto distance = [&](std::size_t at) {
    return std::abs(places.y[at] - y - slope * (places.x[at] - x));
  };
  std::size_t nearest = from;
  for (std::size_t at = from + 1; at < to; ++at) {
    if (distance(at) < distance(nearest)) nearest = at;
  }
  return nearest;
}

// All of a short series; of a long one a place in each stretch. Stretches are even in what they
// hold, how wide they are and how far the times fall in them, all three together, so that the steep
// part of a curve has enough of them however the series lies over it.
std::vector<std::size_t> CandidatesOf(const Places& places) {
  const std::size_t count = places.x.size();
  std::vector<std::size_t> candidates;
  if (count <= kStretches + 1) {
    candidates.resize(count);
    std::iota(candidates.begin(), candidates.end(), 0);
    return candidates;
  }
  candidates.push_back(0);
  const auto [lowest, highest] = std::ranges::minmax(places.y);
  const double width = 3.0 / static_cast<double>(kStretches);
  const double height = highest > lowest ? highest - lowest : 1.0;
  double deepest = places.y.front();
  double next = width;
  std::size_t from = 1;
  for (std::size_t at = 1; at + 1 < count; ++at) {
    deepest = std::min(deepest, places.y[at]);
    const double way = static_cast<double>(at) / static_cast<double>(count - 1) +
                       (places.x[at] - places.x.front()) / (places.x.back() - places.x.front()) +
                       (places.y.front() - deepest) / height;
    if (way < next && at + 2 < count) continue;
    candidates.push_back(MiddleOf(places, from, at + 1));
    from = at + 1;
    while (next <= way) next += width;
  }
  candidates.push_back(count - 1);
  return candidates;
}

}  // namespace

ChosenPoints Thin(const TableCurve& curve, std::size_t count) {
  const Places places = PlacesOf(curve);
  const std::vector<std::size_t> chosen = ChoosePolyline(places, CandidatesOf(places), count);
  ChosenPoints thinned;
  for (const std::size_t at : chosen) thinned.points.push_back(curve.Points()[at]);
  thinned.deviation = WithoutRounding(DeviationOf(places, chosen));
  return thinned;
}

}  // namespace zentab::curves

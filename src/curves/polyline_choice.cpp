#include "curves/polyline_choice.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zentab::curves {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kPrecision = 1e-4;
// Deviations that rounding brings about are as good as none.
constexpr double kLeast = 1e-13;

// What a line may do at a place when it may deviate by a ratio.
class Band {
 public:
  Band(bool logarithmic, double ratio)
      : factorAbove_(logarithmic ? 1.0 : 1.0 + ratio),
        factorBelow_(logarithmic ? 1.0 : 1.0 - ratio),
        shiftAbove_(logarithmic ? std::log1p(ratio) : 0.0),
        shiftBelow_(!logarithmic  ? 0.0
                    : ratio < 1.0 ? std::log1p(-ratio)
                                  : -kInfinity) {}

  [[nodiscard]] double Above(double y) const { return y * factorAbove_ + shiftAbove_; }
  [[nodiscard]] double Below(double y) const { return y * factorBelow_ + shiftBelow_; }

 private:
  double factorAbove_;
  double factorBelow_;
  double shiftAbove_;
  double shiftBelow_;
};

// The places between two neighbouring candidates that a line can meet first: the convex hull,
// which no band changes.
struct Hulls {
  std::vector<std::size_t> lower;  // of all gaps one behind the other
  std::vector<std::size_t> upper;
  std::vector<std::size_t> lowerEnd;  // by gap
  std::vector<std::size_t> upperEnd;
};

// Adds the lower hull of the places from..to-1; `sign` -1 makes it the upper one.
void AddHull(const Places& places, std::size_t from, std::size_t to, double sign,
             std::vector<std::size_t>& hull) {
  const std::size_t begin = hull.size();
  const auto turnsUp = [&](std::size_t a, std::size_t b, std::size_t c) {
    const double first = (places.y[b] - places.y[a]) * (places.x[c] - places.x[b]);
    const double second = (places.y[c] - places.y[b]) * (places.x[b] - places.x[a]);
    return sign * (second - first) > 0.0;
  };
  for (std::size_t at = from; at < to; ++at) {
    while (hull.size() >= begin + 2 && !turnsUp(hull[hull.size() - 2], hull.back(), at)) {
      hull.pop_back();
    }
    hull.push_back(at);
  }
}

Hulls HullsOf(const Places& places, std::span<const std::size_t> candidates) {
  Hulls hulls;
  for (std::size_t gap = 0; gap + 1 < candidates.size(); ++gap) {
    AddHull(places, candidates[gap] + 1, candidates[gap + 1], 1.0, hulls.lower);
    AddHull(places, candidates[gap] + 1, candidates[gap + 1], -1.0, hulls.upper);
    hulls.lowerEnd.push_back(hulls.lower.size());
    hulls.upperEnd.push_back(hulls.upper.size());
  }
  return hulls;
}

// The slopes of lines from a place that stay within the band of those behind it.
struct Cone {
  double lowest = -kInfinity;
  double highest = kInfinity;
};

class Chooser {
 public:
  Chooser(const Places& places, std::span<const std::size_t> candidates)
      : places_(places),
        candidates_(candidates),
        hulls_(HullsOf(places, candidates)),
        lines_(candidates.size()),
        before_(candidates.size()) {}

  // Whether so many places at most keep to a deviation; Chosen() are then the fewest that do.
  bool Fits(double ratio, std::size_t count) {
    const Band band(places_.logarithmic, ratio);
    const std::size_t none = candidates_.size();
    std::fill(lines_.begin(), lines_.end(), none);
    lines_[0] = 0;
    for (std::size_t from = 0; from + 1 < candidates_.size(); ++from) {
      if (lines_[from] + 1 < count) Reach(band, from);
    }
    return lines_.back() < count;
  }

  [[nodiscard]] std::vector<std::size_t> Chosen() const {
    std::vector<std::size_t> chosen;
    for (std::size_t at = candidates_.size() - 1; at > 0; at = before_[at]) {
      chosen.push_back(candidates_[at]);
    }
    chosen.push_back(candidates_[0]);
    std::reverse(chosen.begin(), chosen.end());
    return chosen;
  }

 private:
  // Goes on from a candidate to all those that a line reaches.
  void Reach(const Band& band, std::size_t from) {
    const std::size_t origin = candidates_[from];
    Cone cone;
    for (std::size_t to = from + 1; to < candidates_.size(); ++to) {
      NarrowByGap(band, origin, to - 1, cone);
      if (cone.lowest > cone.highest) return;
      const std::size_t end = candidates_[to];
      const double width = places_.x[end] - places_.x[origin];
      const double slope = (places_.y[end] - places_.y[origin]) / width;
      if (slope >= cone.lowest && slope <= cone.highest && lines_[from] + 1 < lines_[to]) {
        lines_[to] = lines_[from] + 1;
        before_[to] = from;
      }
      Narrow(band, origin, end, cone);
      if (cone.lowest > cone.highest) return;
    }
  }

  void Narrow(const Band& band, std::size_t origin, std::size_t at, Cone& cone) const {
    const double width = places_.x[at] - places_.x[origin];
    const double y = places_.y[origin];
    cone.highest = std::min(cone.highest, (band.Above(places_.y[at]) - y) / width);
    cone.lowest = std::max(cone.lowest, (band.Below(places_.y[at]) - y) / width);
  }

  void NarrowByGap(const Band& band, std::size_t origin, std::size_t gap, Cone& cone) const {
    const double x = places_.x[origin];
    const double y = places_.y[origin];
    for (std::size_t i = gap == 0 ? 0 : hulls_.lowerEnd[gap - 1]; i < hulls_.lowerEnd[gap]; ++i) {
      const std::size_t at = hulls_.lower[i];
      cone.highest = std::min(cone.highest, (band.Above(places_.y[at]) - y) / (places_.x[at] - x));
    }
    for (std::size_t i = gap == 0 ? 0 : hulls_.upperEnd[gap - 1]; i < hulls_.upperEnd[gap]; ++i) {
      const std::size_t at = hulls_.upper[i];
      cone.lowest = std::max(cone.lowest, (band.Below(places_.y[at]) - y) / (places_.x[at] - x));
    }
  }

  const Places& places_;
  std::span<const std::size_t> candidates_;
  Hulls hulls_;
  std::vector<std::size_t> lines_;   // by candidate, the fewest lines that lead to it
  std::vector<std::size_t> before_;  // and where the last of them begins
};

double DeviationAt(const Places& places, std::size_t from, std::size_t to, std::size_t at) {
  const double part = (places.x[at] - places.x[from]) / (places.x[to] - places.x[from]);
  const double line = std::lerp(places.y[from], places.y[to], part);
  return places.logarithmic ? std::abs(std::expm1(line - places.y[at]))
                            : std::abs(line - places.y[at]) / places.y[at];
}

double DeviationBetween(const Places& places, std::size_t from, std::size_t to) {
  double largest = 0.0;
  for (std::size_t at = from + 1; at < to; ++at) {
    largest = std::max(largest, DeviationAt(places, from, to, at));
  }
  return largest;
}

// The candidate nearest to the middle of a line that may be a corner as well.
std::size_t CornerWithin(const Places& places, std::span<const std::size_t> candidates,
                         std::size_t from, std::size_t to, double deviation) {
  const auto distance = [&](std::size_t at) {
    return std::abs(2.0 * places.x[at] - places.x[from] - places.x[to]);
  };
  const auto first = std::upper_bound(candidates.begin(), candidates.end(), from);
  std::vector<std::size_t> within(first, std::lower_bound(first, candidates.end(), to));
  std::sort(within.begin(), within.end(),
            [&](std::size_t one, std::size_t other) { return distance(one) < distance(other); });
  for (const std::size_t at : within) {
    if (DeviationBetween(places, from, at) <= deviation &&
        DeviationBetween(places, at, to) <= deviation) {
      return at;
    }
  }
  return from;
}

// Where fewer places do as well, the widest lines get a corner more.
void FillUp(const Places& places, std::span<const std::size_t> candidates, std::size_t count,
            std::vector<std::size_t>& chosen) {
  if (chosen.size() >= count) return;
  const double deviation = std::max(DeviationOf(places, chosen), kLeast);
  std::vector<std::size_t> closed;  // where lines begin that stay as they are
  while (chosen.size() < count) {
    std::size_t widest = chosen.size();
    double width = 0.0;
    for (std::size_t at = 1; at < chosen.size(); ++at) {
      const double own = places.x[chosen[at]] - places.x[chosen[at - 1]];
      const bool isClosed = std::ranges::find(closed, chosen[at - 1]) != closed.end();
      if (isClosed || own <= width) continue;
      width = own;
      widest = at;
    }
    if (widest == chosen.size()) return;
    const std::size_t from = chosen[widest - 1];
    const std::size_t corner = CornerWithin(places, candidates, from, chosen[widest], deviation);
    if (corner == from) {
      closed.push_back(from);
    } else {
      chosen.insert(chosen.begin() + static_cast<std::ptrdiff_t>(widest), corner);
    }
  }
}

}  // namespace

double DeviationOf(const Places& places, std::span<const std::size_t> chosen) {
  double largest = 0.0;
  for (std::size_t at = 1; at < chosen.size(); ++at) {
    largest = std::max(largest, DeviationBetween(places, chosen[at - 1], chosen[at]));
  }
  return largest;
}

std::vector<std::size_t> ChoosePolyline(const Places& places,
                                        std::span<const std::size_t> candidates,
                                        std::size_t count) {
  if (candidates.size() <= count) return {candidates.begin(), candidates.end()};
  // Where the candidates gather where the curve bends, an even choice is nearly the best.
  std::vector<std::size_t> chosen;
  for (std::size_t at = 0; at < count; ++at) {
    chosen.push_back(candidates[at * (candidates.size() - 1) / (count - 1)]);
  }
  double high = DeviationOf(places, chosen);
  double low = 0.0;
  Chooser chooser(places, candidates);
  while (high > kLeast && high > low * (1.0 + kPrecision)) {
    const double middle = low > 0.0 ? std::sqrt(low * high) : high / 3.0;
    if (chooser.Fits(middle, count)) {
      chosen = chooser.Chosen();
      high = middle;
    } else {
      low = middle;
    }
  }
  FillUp(places, candidates, count, chosen);
  return chosen;
}

}  // namespace zentab::curves

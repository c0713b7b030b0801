#include "curves/best_loads.h"

#include <algorithm>
#include <cmath>

#include "curves/polyline_choice.h"
#include "texts/number_text.h"

namespace zentab::curves {
namespace {

constexpr std::size_t kFirstLooks = 257;
constexpr std::size_t kLooks = 1025;
constexpr int kPasses = 4;  // in which the looks gather where the curve bends
constexpr int kRounds = 3;  // in which corners move between looks
constexpr int kFiner = 8;   // looks between two former ones
// Of all looks this part is spread evenly, so that no stretch goes without.
constexpr double kEven = 0.2;

// A characteristic seen on the axes of the chart.
class Seen {
 public:
  Seen(const CharacteristicCurve& curve, double from, double to)
      : curve_(curve), from_(from), to_(to), logarithmic_(from > 0.0) {
    const std::optional<double> jump = curve.JumpAt();
    if (!jump) return;
    // The step belongs to the loads above it, or of undervoltage to those below.
    const double before = TripsBelow(curve.Settings().family) ? *jump * (1.0 + kJumpWidth)
                                                              : *jump * (1.0 - kJumpWidth);
    for (const double load : {*jump, before}) {
      if (load >= from && load <= to) fixed_.push_back(XOf(load));
    }
  }

  [[nodiscard]] double XOf(double load) const { return logarithmic_ ? std::log(load) : load; }
  // The ends come back as they were given.
  [[nodiscard]] double LoadOf(double x) const {
    if (x == XOf(from_)) return from_;
    if (x == XOf(to_)) return to_;
    if (const auto jump = curve_.JumpAt(); jump && x == XOf(*jump)) return *jump;
    return logarithmic_ ? std::exp(x) : x;
  }

  // The curve at increasing x, and at the places beside a step. A fault ends it.
  [[nodiscard]] std::optional<Fault> Look(std::vector<double> x, Places& places) const {
    if (!fixed_.empty()) {
      const auto [low, high] = std::ranges::minmax(fixed_);
      // Nothing of what goes on within the step.
      std::erase_if(x, [low = low, high = high](double at) { return at > low && at < high; });
      x.insert(x.end(), fixed_.begin(), fixed_.end());
      std::ranges::sort(x);
      x.erase(std::unique(x.begin(), x.end()), x.end());
    }
    places = {std::move(x), {}, logarithmic_};
    places.y.reserve(places.x.size());
    for (const double at : places.x) {
      const Outcome<double> time = curve_.TimeAt(LoadOf(at));
      if (const Fault* const fault = FaultOf(time)) return *fault;
      const double value = std::get<double>(time);
      places.y.push_back(logarithmic_ ? std::log(value) : value);
    }
    return std::nullopt;
  }

 private:
  const CharacteristicCurve& curve_;
  double from_;
  double to_;
  bool logarithmic_;
  std::vector<double> fixed_;
};

std::vector<double> Spread(double from, double to, std::size_t count) {
  std::vector<double> x;
  for (std::size_t at = 0; at < count; ++at) {
    x.push_back(std::lerp(from, to, static_cast<double>(at) / static_cast<double>(count - 1)));
  }
  return x;
}

// How many lines a stretch needs beside others: they deviate by the second derivative times the
// square of their width.
std::vector<double> Needs(const Places& places) {
  const std::size_t lines = places.x.size() - 1;
  std::vector<double> needs(lines);
  const auto slope = [&](std::size_t at) {
    return (places.y[at + 1] - places.y[at]) / (places.x[at + 1] - places.x[at]);
  };
  double total = 0.0;
  for (std::size_t at = 0; at < lines; ++at) {
    const double width = places.x[at + 1] - places.x[at];
    const double before = at > 0 ? std::abs(slope(at) - slope(at - 1)) : 0.0;
    const double behind = at + 1 < lines ? std::abs(slope(at + 1) - slope(at)) : 0.0;
    const double scale = places.logarithmic ? 1.0 : 1.0 / places.y[at];
    needs[at] = std::sqrt(std::max(before, behind) * scale * width);
    total += needs[at];
  }
  const double whole = places.x.back() - places.x.front();
  for (std::size_t at = 0; at < lines; ++at) {
    const double even = (places.x[at + 1] - places.x[at]) / whole;
    needs[at] = total > 0.0 ? (1.0 - kEven) * needs[at] / total + kEven * even : even;
  }
  return needs;
}

// So many x that each stretch gets its part of them.
std::vector<double> Gathered(const Places& places, std::size_t count) {
  const std::vector<double> needs = Needs(places);
  std::vector<double> x = {places.x.front()};
  const double step = 1.0 / static_cast<double>(count - 1);
  double next = step;
  double sum = 0.0;
  for (std::size_t at = 0; at < needs.size(); ++at) {
    for (; next < sum + needs[at] && x.size() + 1 < count; next += step) {
      x.push_back(std::lerp(places.x[at], places.x[at + 1], (next - sum) / needs[at]));
    }
    sum += needs[at];
  }
  x.push_back(places.x.back());
  x.erase(std::unique(x.begin(), x.end()), x.end());
  return x;
}

// Looks between the corners and their neighbours; only these may be corners next.
std::vector<double> FinerLooks(const std::vector<double>& x, std::span<const std::size_t> corners) {
  std::vector<double> finer;
  for (const std::size_t corner : corners) {
    if (corner == 0 || corner + 1 == x.size()) {
      finer.push_back(x[corner]);
      continue;
    }
    for (std::size_t from = corner - 1; from <= corner; ++from) {
      for (int part = 0; part <= kFiner; ++part) {
        finer.push_back(std::lerp(x[from], x[from + 1], static_cast<double>(part) / kFiner));
      }
    }
  }
  std::ranges::sort(finer);
  finer.erase(std::unique(finer.begin(), finer.end()), finer.end());
  return finer;
}

std::vector<std::size_t> PlacesIn(const Places& places, const std::vector<double>& x) {
  std::vector<std::size_t> found;
  for (std::size_t at = 0; at < places.x.size(); ++at) {
    if (std::ranges::binary_search(x, places.x[at])) found.push_back(at);
  }
  return found;
}

// Leaves no more decimals than matter: a thousandth of the way to the nearest neighbour. The ends
// and a step stay what they are.
void Shorten(std::vector<double>& loads, const std::optional<double>& jump) {
  constexpr int kMostDecimals = 15;
  const std::vector<double> exact = loads;
  for (std::size_t at = 1; at + 1 < loads.size(); ++at) {
    if (jump && exact[at] == *jump) continue;
    const double way = std::min(exact[at] - exact[at - 1], exact[at + 1] - exact[at]);
    const double decimals = std::ceil(3.0 - std::log10(way));
    if (decimals > kMostDecimals) continue;
    loads[at] = texts::RoundHalfEven(exact[at], std::max(0, static_cast<int>(decimals)));
  }
}

}  // namespace

Outcome<std::vector<double>> BestLoads(const CharacteristicCurve& curve, double from, double to,
                                       std::size_t count) {
  const Seen seen(curve, from, to);
  Places places;
  if (auto fault = seen.Look(Spread(seen.XOf(from), seen.XOf(to), kFirstLooks), places)) {
    return *fault;
  }
  for (int pass = 1; pass <= kPasses; ++pass) {
    const std::size_t looks = pass < kPasses ? kFirstLooks : kLooks;
    if (auto fault = seen.Look(Gathered(places, looks), places)) return *fault;
  }
  std::vector<std::size_t> all(places.x.size());
  for (std::size_t at = 0; at < all.size(); ++at) all[at] = at;
  std::vector<std::size_t> corners = ChoosePolyline(places, all, count);
  for (int round = 0; round < kRounds; ++round) {
    const std::vector<double> finer = FinerLooks(places.x, corners);
    std::vector<double> x = places.x;
    x.insert(x.end(), finer.begin(), finer.end());
    std::ranges::sort(x);
    x.erase(std::unique(x.begin(), x.end()), x.end());
    if (auto fault = seen.Look(std::move(x), places)) return *fault;
    corners = ChoosePolyline(places, PlacesIn(places, finer), count);
  }
  std::vector<double> loads;
  loads.reserve(corners.size());
  for (const std::size_t corner : corners) loads.push_back(seen.LoadOf(places.x[corner]));
  Shorten(loads, curve.JumpAt());
  return loads;
}

}  // namespace zentab::curves

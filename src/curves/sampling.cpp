#include "curves/sampling.h"

#include <algorithm>
#include <cmath>

#include "curves/best_loads.h"

namespace zentab::curves {
namespace {

constexpr double kUsualFrom = 1.05;
constexpr double kUsualTo = 20.0;
constexpr double kUsualBelowFrom = 0.05;
constexpr double kUsualBelowTo = 0.95;
constexpr int kLooksPerLine = 64;

std::optional<Fault> FaultOfSampling(const Sampling& sampling) {
  if (sampling.points < 2 || sampling.points > tables::kMaxPoints) {
    return Fault{FaultKind::BadPointCount, static_cast<double>(tables::kMaxPoints)};
  }
  if (!std::isfinite(sampling.from) || !std::isfinite(sampling.to) ||
      !(sampling.from < sampling.to)) {
    return Fault{FaultKind::BadRange};
  }
  if (sampling.spacing == Spacing::Logarithmic && sampling.from <= 0.0) {
    return Fault{FaultKind::LogarithmOfLoad, sampling.from};
  }
  return std::nullopt;
}

// Between which a definite step lies: no line shows what goes on there.
bool HoldsJump(const std::optional<double>& jump, double from, double to) {
  return jump && from < *jump * (1.0 + kJumpWidth) && to > *jump * (1.0 - kJumpWidth);
}

}  // namespace

Sampling UsualSampling(const Characteristic& characteristic) {
  const double unit = characteristic.absoluteLoads ? characteristic.pickup : 1.0;
  const bool isBelow = TripsBelow(characteristic.family);
  Sampling sampling;
  sampling.from = unit * (isBelow ? kUsualBelowFrom : kUsualFrom);
  sampling.to = unit * (isBelow ? kUsualBelowTo : kUsualTo);
  return sampling;
}

Outcome<std::vector<double>> SpacedLoads(const Sampling& sampling) {
  if (const std::optional<Fault> fault = FaultOfSampling(sampling)) return *fault;
  std::vector<double> loads;
  const auto lines = static_cast<double>(sampling.points - 1);
  for (std::size_t at = 0; at < sampling.points; ++at) {
    const double part = static_cast<double>(at) / lines;
    loads.push_back(sampling.spacing == Spacing::Linear
                        ? std::lerp(sampling.from, sampling.to, part)
                        : sampling.from * std::pow(sampling.to / sampling.from, part));
  }
  loads.back() = sampling.to;
  // A range of a few roundings has no room for so many.
  if (std::ranges::adjacent_find(loads, std::greater_equal()) != loads.end()) {
    return Fault{FaultKind::BadRange};
  }
  return loads;
}

Outcome<ChosenPoints> Sample(const CharacteristicCurve& curve, const Sampling& sampling) {
  if (const std::optional<Fault> fault = FaultOfSampling(sampling)) return *fault;
  std::vector<double> loads;
  if (sampling.spacing == Spacing::Best) {
    Outcome<std::vector<double>> best =
        BestLoads(curve, sampling.from, sampling.to, sampling.points);
    if (const Fault* const fault = FaultOf(best)) return *fault;
    loads = std::get<std::vector<double>>(std::move(best));
  } else {
    Outcome<std::vector<double>> spaced = SpacedLoads(sampling);
    if (const Fault* const fault = FaultOf(spaced)) return *fault;
    loads = std::get<std::vector<double>>(std::move(spaced));
  }
  Outcome<ChosenPoints> sampled = SampleAt(curve, loads);
  if (auto* const chosen = std::get_if<ChosenPoints>(&sampled)) {
    chosen->deviation = DeviationOfLines(curve, chosen->points, sampling.from > 0.0);
  }
  return sampled;
}

Outcome<ChosenPoints> SampleAt(const CharacteristicCurve& curve, std::span<const double> loads) {
  if (loads.empty() || loads.size() > tables::kMaxPoints) {
    return Fault{FaultKind::BadPointCount, static_cast<double>(tables::kMaxPoints)};
  }
  ChosenPoints sampled;
  for (const double load : loads) {
    const Outcome<double> time = curve.TimeAt(load);
    if (const Fault* const fault = FaultOf(time)) return *fault;
    for (const Point& point : sampled.points) {
      if (point.load == load) return Fault{FaultKind::EqualLoads, load};
    }
    sampled.points.push_back({load, std::get<double>(time)});
  }
  return sampled;
}

double DeviationOfLines(const CharacteristicCurve& curve, std::span<const Point> points,
                        bool logarithmic) {
  double largest = 0.0;
  for (std::size_t at = 1; at < points.size(); ++at) {
    const Point& from = points[at - 1];
    const Point& to = points[at];
    if (HoldsJump(curve.JumpAt(), from.load, to.load) &&
        to.load - from.load <= 4.0 * kJumpWidth * to.load) {
      continue;
    }
    for (int look = 1; look < kLooksPerLine; ++look) {
      const double part = static_cast<double>(look) / kLooksPerLine;
      const double load = logarithmic ? from.load * std::pow(to.load / from.load, part)
                                      : std::lerp(from.load, to.load, part);
      const double time = curve.Time(load).value_or(0.0);
      if (time <= 0.0) continue;
      const double line = TimeBetween(from, to, load, logarithmic);
      largest = std::max(largest, std::abs(line - time) / time);
    }
  }
  return WithoutRounding(largest);
}

}  // namespace zentab::curves

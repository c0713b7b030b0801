#include "curves/table_curve.h"

#include <algorithm>
#include <cmath>

namespace zentab::curves {
namespace {

constexpr double kRounding = 1e-9;  // of a load, what converting it may lose

bool IsBefore(const Point& one, const Point& other) { return one.load < other.load; }

std::optional<double> EqualLoad(std::span<const Point> sorted) {
  const auto equal = std::adjacent_find(
      sorted.begin(), sorted.end(),
      [](const Point& one, const Point& other) { return one.load == other.load; });
  return equal != sorted.end() ? std::optional(equal->load) : std::nullopt;
}

}  // namespace

std::optional<Fault> FaultOfPoints(std::span<const Point> points, std::size_t needed) {
  double number = 0.0;
  for (const Point& point : points) {
    ++number;
    if (!std::isfinite(point.load) || point.load < 0.0) return Fault{FaultKind::BadLoad, number};
    if (!std::isfinite(point.time) || point.time <= 0.0) return Fault{FaultKind::BadTime, number};
  }
  if (points.size() >= needed) return std::nullopt;
  return Fault{FaultKind::TooFewPoints, static_cast<double>(needed)};
}

Outcome<TableCurve> TableCurve::Of(std::span<const Point> points, Axes axes) {
  if (std::optional<Fault> fault = FaultOfPoints(points, 2)) return *std::move(fault);
  std::vector<Point> sorted(points.begin(), points.end());
  if (!std::is_sorted(sorted.begin(), sorted.end(), IsBefore)) {
    std::sort(sorted.begin(), sorted.end(), IsBefore);
  }
  if (const auto load = EqualLoad(sorted)) return Fault{FaultKind::EqualLoads, *load};
  const bool isPositive = sorted.front().load > 0.0;
  if (axes == Axes::Logarithmic && !isPositive) {
    return Fault{FaultKind::LogarithmOfLoad, sorted.front().load};
  }
  return TableCurve(std::move(sorted), isPositive && axes != Axes::Linear);
}

double TimeBetween(const Point& from, const Point& to, double load, bool logarithmic) {
  if (load <= from.load) return from.time;
  if (load >= to.load) return to.time;
  if (!logarithmic) {
    return std::lerp(from.time, to.time, (load - from.load) / (to.load - from.load));
  }
  const double part = std::log(load / from.load) / std::log(to.load / from.load);
  return from.time * std::exp(part * std::log(to.time / from.time));
}

std::optional<double> TableCurve::Time(double load) const {
  if (!(load >= From() * (1.0 - kRounding) && load <= To() * (1.0 + kRounding))) {
    return std::nullopt;
  }
  const auto next =
      std::lower_bound(points_.begin() + 1, points_.end() - 1, Point{load, 0.0}, IsBefore);
  return TimeBetween(*(next - 1), *next, load, logarithmic_);
}

double LargestDeviation(const TableCurve& curve, std::span<const Point> points) {
  double largest = 0.0;
  for (const Point& point : points) {
    const double time = curve.Time(point.load).value_or(point.time);
    largest = std::max(largest, std::abs(time - point.time) / point.time);
  }
  return largest;
}

Outcome<std::vector<Point>> Resample(const TableCurve& curve, std::span<const double> loads) {
  std::vector<Point> points;
  for (const double load : loads) {
    const std::optional<double> time = curve.Time(load);
    if (!time) return Fault{FaultKind::OutsideTable, load};
    points.push_back({load, *time});
  }
  std::vector<Point> sorted = points;
  std::sort(sorted.begin(), sorted.end(), IsBefore);
  if (const auto load = EqualLoad(sorted)) return Fault{FaultKind::EqualLoads, *load};
  return points;
}

}  // namespace zentab::curves

// What two curves of straight lines are to each other.
#include <algorithm>
#include <cmath>

#include "curves/table_curve.h"

namespace zentab::curves {
namespace {

// The loads of both curves' points over their common range, its ends included; empty without one.
std::vector<double> CommonLoads(const TableCurve& first, const TableCurve& second) {
  const double from = std::max(first.From(), second.From());
  const double to = std::min(first.To(), second.To());
  std::vector<double> loads;
  for (const TableCurve* const curve : {&first, &second}) {
    for (const Point& point : curve->Points()) {
      if (point.load >= from && point.load <= to) loads.push_back(point.load);
    }
  }
  std::sort(loads.begin(), loads.end());
  loads.erase(std::unique(loads.begin(), loads.end()), loads.end());
  return loads;
}

// Between two neighbouring loads both curves are one line each. On logarithmic axes
// t = a (L/L0)^p: they cross where a L^p = b L^q, and their distance has an extremum where
// a p L^p = b q L^q.
void AddPlacesBetween(const TableCurve& first, const TableCurve& second, double from, double to,
                      std::vector<double>& places) {
  const double a = *first.Time(from);
  const double b = *second.Time(from);
  const double a1 = *first.Time(to);
  const double b1 = *second.Time(to);
  const auto add = [&](double load) {
    if (load > from && load < to) places.push_back(load);
  };
  if (!first.IsLogarithmic() || !second.IsLogarithmic()) {
    add(from + (to - from) * (a - b) / ((a - b) - (a1 - b1)));
    return;
  }
  const double width = std::log(to / from);
  const double p = std::log(a1 / a) / width;
  const double q = std::log(b1 / b) / width;
  add(from * std::exp(std::log(a / b) / (q - p)));
  add(from * std::exp(std::log((a * p) / (b * q)) / (q - p)));
}

}  // namespace

Outcome<std::vector<CurveDifference>> Difference(const TableCurve& first,
                                                 const TableCurve& second) {
  std::vector<CurveDifference> differences;
  for (const double load : CommonLoads(first, second)) {
    const double reference = *second.Time(load);
    const double time = *first.Time(load) - reference;
    differences.push_back({load, time, time / reference});
  }
  if (differences.empty()) return Fault{FaultKind::NoCommonRange};
  return differences;
}

Outcome<Point> SmallestMargin(const TableCurve& first, const TableCurve& second) {
  const std::vector<double> loads = CommonLoads(first, second);
  if (loads.empty()) return Fault{FaultKind::NoCommonRange};
  std::vector<double> places = loads;
  for (std::size_t at = 1; at < loads.size(); ++at) {
    AddPlacesBetween(first, second, loads[at - 1], loads[at], places);
  }
  std::sort(places.begin(), places.end());
  Point smallest{places.front(),
                 std::abs(*first.Time(places.front()) - *second.Time(places.front()))};
  for (const double load : places) {
    const double margin = std::abs(*first.Time(load) - *second.Time(load));
    if (margin < smallest.time) smallest = {load, margin};
  }
  return smallest;
}

}  // namespace zentab::curves

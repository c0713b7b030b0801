#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "curves/fault.h"

namespace zentab::curves {

/// A point of a curve: load in multiples of the pickup value, amperes or volts; time in s, or in
/// ms where all of a curve is.
struct Point {
  double load = 0.0;
  double time = 0.0;

  friend bool operator==(const Point&, const Point&) = default;
};

/// The axes on which lines are straight; Chart: logarithmic where every load is positive.
enum class Axes { Chart, Logarithmic, Linear };

/// What no operation can do without: at least `needed` points, loads from 0 up, times above 0.
[[nodiscard]] std::optional<Fault> FaultOfPoints(std::span<const Point> points, std::size_t needed);

/// A curve of straight lines between points.
class TableCurve {
 public:
  /// From at least two points in any order. TooFewPoints, BadLoad, BadTime, EqualLoads,
  /// LogarithmOfLoad.
  [[nodiscard]] static Outcome<TableCurve> Of(std::span<const Point> points, Axes axes);

  /// The time at a load; nothing outside the points. A load beyond an end by less than a
  /// billionth, as a conversion leaves it, belongs to that end.
  [[nodiscard]] std::optional<double> Time(double load) const;

  /// In the order of their loads.
  [[nodiscard]] const std::vector<Point>& Points() const { return points_; }
  [[nodiscard]] double From() const { return points_.front().load; }
  [[nodiscard]] double To() const { return points_.back().load; }
  [[nodiscard]] bool IsLogarithmic() const { return logarithmic_; }

 private:
  TableCurve(std::vector<Point> points, bool logarithmic)
      : points_(std::move(points)), logarithmic_(logarithmic) {}

  std::vector<Point> points_;
  bool logarithmic_;
};

/// A ratio of times, or 0 where rounding alone may have brought it about.
[[nodiscard]] inline double WithoutRounding(double ratio) { return ratio < 1e-13 ? 0.0 : ratio; }

/// The time on the straight line through two points, at a load between them.
[[nodiscard]] double TimeBetween(const Point& from, const Point& to, double load, bool logarithmic);

/// The largest deviation of a curve from points within its range, as a ratio of their times.
[[nodiscard]] double LargestDeviation(const TableCurve& curve, std::span<const Point> points);

/// Times of a curve at loads, in their order. OutsideTable, EqualLoads.
[[nodiscard]] Outcome<std::vector<Point>> Resample(const TableCurve& curve,
                                                   std::span<const double> loads);

/// How far one curve lies above another.
struct CurveDifference {
  double load;
  double time;   // first less second, s (or ms where the curves are in ms)
  double ratio;  // of the second curve's time
};

/// The difference of two curves at each load that either has a point at, over their common range.
/// NoCommonRange.
[[nodiscard]] Outcome<std::vector<CurveDifference>> Difference(const TableCurve& first,
                                                               const TableCurve& second);

/// Where two curves come closest, over their common range, and how close: at least 0.
/// NoCommonRange.
[[nodiscard]] Outcome<Point> SmallestMargin(const TableCurve& first, const TableCurve& second);

}  // namespace zentab::curves

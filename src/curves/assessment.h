#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "curves/characteristic.h"
#include "curves/table_curve.h"

namespace zentab::curves {

/// From a multiple of the pickup value on, how many times the assigned error is allowed.
struct ClassStep {
  double multiple;
  double factor;

  friend bool operator==(const ClassStep&, const ClassStep&) = default;
};

/// IEC 60255-151, table of the limiting errors: 2.5 from 2 times the pickup value, 1.5 from 5, 1
/// from 10.
[[nodiscard]] std::vector<ClassStep> StandardClassSteps();

/// How far a time may be off. The greatest of the limits counts.
struct Limits {
  double percent = 0.0;        // of the nominal time
  double milliseconds = 0.0;   // ms
  double assignedError = 0.0;  // the accuracy class: per cent, times the factor of a class step
  /// By increasing multiples. Below the first one, for which the standard has none, its factor
  /// counts; empty: 1 everywhere.
  std::vector<ClassStep> classSteps = StandardClassSteps();
  /// Per cent of the load. How much the nominal time changes within it, to the side where it
  /// changes more, is added to the limit; a side where there is no nominal time is left out.
  double loadPercent = 0.0;
};

/// What measured points are held against: a nominal time in s at a load in their unit, nothing
/// outside its range. The pickup value in the same unit makes multiples of loads.
struct Reference {
  std::function<std::optional<double>(double load)> time;
  std::optional<double> pickup;
};
[[nodiscard]] Reference ReferenceOf(const TableCurve& curve, std::optional<double> pickup);
/// With absolute loads or multiples, as the characteristic has them.
[[nodiscard]] Reference ReferenceOf(const CharacteristicCurve& curve);

enum class Verdict { Passed, Failed, Outside };

struct AssessedPoint {
  Point measured;                  // s
  std::optional<double> multiple;  // nothing without a pickup value
  Verdict verdict = Verdict::Outside;
  double nominal = 0.0;    // s; this and the rest 0 where outside
  double deviation = 0.0;  // s, measured less nominal
  double ratio = 0.0;      // the same, of the nominal time
  double limit = 0.0;      // s
};

struct Assessment {
  std::vector<AssessedPoint> points;  // as they were given
  std::size_t passed = 0;
  std::size_t failed = 0;
  std::size_t outside = 0;
  double largestRatio = 0.0;  // of those inside, without its sign

  /// Whether every point is inside and passed.
  [[nodiscard]] bool IsPassed() const { return failed == 0 && outside == 0; }
};

/// Whether measured times (s) are within limits of a reference. TooFewPoints, BadLoad, BadTime;
/// BadSetting for a limit that is negative or no number; PickupNeeded for an accuracy class
/// without a pickup value.
[[nodiscard]] Outcome<Assessment> Assess(std::span<const Point> measured,
                                         const Reference& reference, const Limits& limits);

/// How far a time at a load may be off, in s; nothing outside the reference. For the band in a
/// chart.
[[nodiscard]] std::optional<double> LimitAt(double load, const Reference& reference,
                                            const Limits& limits);

}  // namespace zentab::curves

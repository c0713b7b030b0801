#include "curves/assessment.h"

#include <algorithm>
#include <cmath>

namespace zentab::curves {
namespace {

constexpr double kPercent = 0.01;
constexpr double kMillisecond = 0.001;  // s
// What decimal numbers lose as doubles must not fail a point that lies on its limit.
constexpr double kLoadRounding = 1e-9;
constexpr double kTimeRounding = 1e-13;
// A part of a time that the 15 digits of a number text do not hold.
constexpr double kUnseen = 1e-14;

std::optional<Fault> FaultOfLimits(const Reference& reference, const Limits& limits) {
  const auto isBad = [](double value) { return !std::isfinite(value) || value < 0.0; };
  if (isBad(limits.percent)) return Fault{FaultKind::BadSetting, 0.0, "percent"};
  if (isBad(limits.milliseconds)) return Fault{FaultKind::BadSetting, 0.0, "ms"};
  if (isBad(limits.assignedError)) return Fault{FaultKind::BadSetting, 0.0, "class"};
  if (isBad(limits.loadPercent)) return Fault{FaultKind::BadSetting, 0.0, "load percent"};
  for (const ClassStep& step : limits.classSteps) {
    if (isBad(step.factor)) return Fault{FaultKind::BadSetting, 0.0, "factor"};
  }
  if (reference.pickup && !(std::isfinite(*reference.pickup) && *reference.pickup > 0.0)) {
    return Fault{FaultKind::BadSetting, 0.0, "pickup"};
  }
  if (limits.assignedError > 0.0 && !reference.pickup) return Fault{FaultKind::PickupNeeded};
  return std::nullopt;
}

double ClassFactor(double multiple, const std::vector<ClassStep>& steps) {
  if (steps.empty()) return 1.0;
  double factor = steps.front().factor;
  for (const ClassStep& step : steps) {
    if (multiple >= step.multiple * (1.0 - kLoadRounding)) factor = step.factor;
  }
  return factor;
}

double LimitAround(double load, double nominal, const Reference& reference, const Limits& limits) {
  double limit = std::max(limits.percent * kPercent * nominal, limits.milliseconds * kMillisecond);
  if (limits.assignedError > 0.0 && reference.pickup) {
    const double factor = ClassFactor(load / *reference.pickup, limits.classSteps);
    limit = std::max(limit, limits.assignedError * factor * kPercent * nominal);
  }
  double widened = 0.0;
  if (limits.loadPercent > 0.0) {
    for (const double side : {-limits.loadPercent, limits.loadPercent}) {
      const double time = reference.time(load * (1.0 + side * kPercent)).value_or(nominal);
      widened = std::max(widened, std::abs(time - nominal));
    }
  }
  return limit + widened;
}

AssessedPoint Assessed(const Point& measured, const Reference& reference, const Limits& limits) {
  AssessedPoint point;
  point.measured = measured;
  if (reference.pickup) point.multiple = measured.load / *reference.pickup;
  const std::optional<double> nominal = reference.time(measured.load);
  if (!nominal) return point;
  point.nominal = *nominal;
  point.deviation = measured.time - *nominal;
  if (std::abs(point.deviation) < kUnseen * *nominal) point.deviation = 0.0;
  point.ratio = point.deviation / *nominal;
  point.limit = LimitAround(measured.load, *nominal, reference, limits);
  const double allowed = point.limit * (1.0 + kLoadRounding) + kTimeRounding * *nominal;
  point.verdict = std::abs(point.deviation) <= allowed ? Verdict::Passed : Verdict::Failed;
  return point;
}

}  // namespace

std::vector<ClassStep> StandardClassSteps() { return {{2.0, 2.5}, {5.0, 1.5}, {10.0, 1.0}}; }

Reference ReferenceOf(const TableCurve& curve, std::optional<double> pickup) {
  return {[curve](double load) { return curve.Time(load); }, pickup};
}

Reference ReferenceOf(const CharacteristicCurve& curve) {
  return {[curve](double load) { return curve.Time(load); }, curve.Unit()};
}

Outcome<Assessment> Assess(std::span<const Point> measured, const Reference& reference,
                           const Limits& limits) {
  if (std::optional<Fault> fault = FaultOfPoints(measured, 1)) return *std::move(fault);
  if (std::optional<Fault> fault = FaultOfLimits(reference, limits)) return *std::move(fault);
  Assessment assessment;
  for (const Point& point : measured) {
    const AssessedPoint assessed = Assessed(point, reference, limits);
    switch (assessed.verdict) {
      case Verdict::Passed:
        ++assessment.passed;
        break;
      case Verdict::Failed:
        ++assessment.failed;
        break;
      case Verdict::Outside:
        ++assessment.outside;
        break;
    }
    assessment.largestRatio = std::max(assessment.largestRatio, std::abs(assessed.ratio));
    assessment.points.push_back(assessed);
  }
  return assessment;
}

std::optional<double> LimitAt(double load, const Reference& reference, const Limits& limits) {
  const std::optional<double> nominal = reference.time(load);
  if (!nominal) return std::nullopt;
  return LimitAround(load, *nominal, reference, limits);
}

}  // namespace zentab::curves

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace zentab::timetest {

/// One point of a time test.
struct MeasuredPoint {
  double load = 0.0;              // absolute, or in multiples of the pickup value
  double time = 0.0;              // ms or s
  double difference = 100'000.0;  // how much the curve bends here; this much at both of its ends

  friend bool operator==(const MeasuredPoint&, const MeasuredPoint&) = default;
};

/// What a stage of an import did to the points.
struct StageEffect {
  std::vector<MeasuredPoint> removed;  // in their order
  std::size_t moved = 0;               // those that have another time
};

struct Extremes {
  double tMin = 0.0;
  double tMax = 0.0;
  double vMin = 0.0;
  double vMax = 0.0;
};

/// Told how far a step is (0 to 1); false stops it.
using ProgressReport = std::function<bool(double)>;

/// Passes on how far a loop is, now and then.
class ProgressMeter {
 public:
  /// For the part of the whole from `from` to `to`.
  ProgressMeter(const ProgressReport& report, double from, double to)
      : report_(report), from_(from), length_(to - from) {}

  /// Called at every step; `done` of `total` are behind. A step with much to do counts for
  /// `effort` of the usual ones. False once the user wants to stop.
  [[nodiscard]] bool Step(std::uintmax_t done, std::uintmax_t total, std::size_t effort = 1) {
    if (effort < untilNext_) {
      untilNext_ -= effort;
      return true;
    }
    untilNext_ = kSteps;
    return !report_ ||
           report_(from_ + length_ * static_cast<double>(done) / static_cast<double>(total));
  }

 private:
  static constexpr std::size_t kSteps = 4096;

  const ProgressReport& report_;
  double from_;
  double length_;
  std::size_t untilNext_ = kSteps;
};

}  // namespace zentab::timetest

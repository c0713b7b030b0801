#pragma once

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {

/// A continued fraction b0 + a1 / (b1 + a2 / (b2 + ...)) from its beginning, as upper / lower (DLMF
/// 1.12.5): without a division a step.
class ContinuedFraction {
 public:
  explicit ContinuedFraction(Wide b0) : upper_(b0) {}

  void Take(Wide a, Wide b) {
    const Wide upper = b * upper_ + a * upperBefore_;
    const Wide lower = b * lower_ + a * lowerBefore_;
    upperBefore_ = upper_;
    lowerBefore_ = lower_;
    upper_ = upper;
    lower_ = lower;
  }
  /// Whether no further step would change what a double can show, or the terms have grown beyond
  /// all numbers: then Inverse() is NaN. Looks every fourth time.
  [[nodiscard]] bool IsSettled() {
    if (++asked_ % 4 != 0) return false;
    const Wide here = upper_ * lowerBefore_;
    const Wide change = std::abs(here - upperBefore_ * lower_);
    if (!std::isfinite(change)) upper_ = kNoNumber;
    if (!std::isfinite(change) || change <= kEpsilon * std::abs(here)) return true;
    if (std::abs(upper_) + std::abs(lower_) > kHuge) {
      for (Wide* part : {&upper_, &lower_, &upperBefore_, &lowerBefore_}) *part /= kHuge;
    }
    return false;
  }
  [[nodiscard]] Wide Inverse() const { return lower_ / upper_; }

 private:
  static constexpr Wide kEpsilon = 1e-18L;
  static constexpr Wide kHuge = 1e100L;

  unsigned asked_ = 0;
  Wide upper_, lower_ = 1.0L, upperBefore_ = 1.0L, lowerBefore_ = 0.0L;
};

}  // namespace zentab::mathparser

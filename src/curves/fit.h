#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "curves/characteristic.h"
#include "curves/table_curve.h"

namespace zentab::curves {

/// What of a characteristic is fitted: T alone, T and the pickup value, or k, alpha and c of the
/// user's own family (of which T stays 1 and the pickup value what is given).
struct FitOptions {
  std::vector<Family> families;                              // empty: all that can be fitted
  tables::Instrument instrument = tables::Instrument::None;  // of an empty choice, else all kinds
  std::optional<double> pickup = 1.0;  // in the loads of the points; nothing: not known
  bool pickupFree = false;
};

enum class FitParameter { Multiplier, Pickup, K, Alpha, C };

struct FittedValue {
  FitParameter parameter = FitParameter::Multiplier;
  double value = 0.0;
  /// With 99.999 % probability the true value lies this close, if the relative errors of the times
  /// are independent and normal; from the linearised model. Nothing where the points do not tell,
  /// and of own where they leave alpha open, since then that model says nothing.
  std::optional<double> uncertainty = {};
  /// Whether the uncertainty is smaller than the value; of alpha than half of it, of c than the
  /// times.
  bool isDetermined = false;
};

struct FamilyFit {
  Characteristic characteristic;  // in the loads of the points; absolute, so that pickup counts
  std::vector<FittedValue> values;
  double rootMeanSquare = 0.0;  // of the relative errors, as a ratio
  double largest = 0.0;         // relative error, as a ratio
};

struct FitResult {
  std::vector<FamilyFit> fits;  // best first
  std::vector<std::pair<Family, Fault>> failed;
};

/// Fits points (times in s) by least relative error of the times. Loads may repeat. `excluded` are
/// places of points from 0 that do not count. The time multiplier follows from the others in
/// closed form, and so do k and c from alpha; pickup value and alpha are sought by Brent's method
/// (Boost.Math) after a scan, alpha between 0.001 and 12. Families rank by root mean square,
/// then by largest error; differences below 1e-10 leave them in the order of Family.
[[nodiscard]] FitResult Fit(std::span<const Point> points, std::span<const std::size_t> excluded,
                            const FitOptions& options);

}  // namespace zentab::curves

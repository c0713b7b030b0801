#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "curves/family.h"
#include "curves/fault.h"

namespace zentab::mathparser {
class MathParser;
}

namespace zentab::curves {

/// A definite time from a multiple of the pickup value upward; of undervoltage, downward.
struct DefiniteStep {
  double multiple = 0.0;
  double time = 0.0;  // s

  friend bool operator==(const DefiniteStep&, const DefiniteStep&) = default;
};

/// A characteristic with its settings. Those that its family does not have are not looked at.
struct Characteristic {
  Family family = Family::IecA;
  double multiplier = 1.0;                  // time multiplier setting or time dial, above 0
  Constants constants = {0.14, 0.02, 0.0};  // of families with their own; alpha not 0
  double seconds = 1.0;        // of i2t the time at the pickup value, of definite the time; s
  double tau = 1.0;            // the heating time constant, s
  double previous = 0.0;       // the load before, as a multiple; from 0 to below the factor
  double factor = 1.0;         // the multiple that thermal trips above, k in IEC 60255-149
  double pickup = 1.0;         // the pickup value, amperes or volts
  bool absoluteLoads = false;  // loads are amperes or volts, not multiples of the pickup value
  std::string equation;        // seconds, of v (the load), pickup and multiplier
  // As relays build them; the step is not subject to the two times.
  std::optional<double> minimumTime;  // s
  std::optional<double> maximumTime;  // s
  std::optional<DefiniteStep> step;
  double start = 1.0;  // the multiple above which the relay picks up, 1.0 to 1.3

  friend bool operator==(const Characteristic&, const Characteristic&) = default;
};

/// A characteristic whose settings were looked at, ready for any number of loads. Copies share
/// their equation: they are for one thread at a time.
class CharacteristicCurve {
 public:
  /// BadSetting, BadEquation or UnknownName where a setting is not usable.
  [[nodiscard]] static Outcome<CharacteristicCurve> Of(const Characteristic& characteristic);

  /// The operating time in s at a load, in the characteristic's loads; always finite and above 0.
  /// AtOrBelowPickup, AtOrAbovePickup or NoFiniteTime where the relay does not operate.
  [[nodiscard]] Outcome<double> TimeAt(double load) const;
  /// The same without the reason.
  [[nodiscard]] std::optional<double> Time(double load) const;

  /// The load at which the definite step begins; nothing without one.
  [[nodiscard]] std::optional<double> JumpAt() const;

  [[nodiscard]] const Characteristic& Settings() const { return settings_; }
  /// The load that is one multiple.
  [[nodiscard]] double Unit() const { return settings_.absoluteLoads ? settings_.pickup : 1.0; }

 private:
  explicit CharacteristicCurve(Characteristic settings) : settings_(std::move(settings)) {}
  [[nodiscard]] std::optional<Fault> Compile();
  [[nodiscard]] double EquationAt(double load) const;

  Characteristic settings_;
  std::shared_ptr<mathparser::MathParser> equation_;
  int loadVariable_ = 0;
};

/// The formula of a family at a multiple of the pickup value, without minimum, maximum and step;
/// in s. NaN for an equation; no time, whatever it is, outside the domain.
[[nodiscard]] double FormulaTime(const Characteristic& settings, double multiple);

/// Whether a relay with these settings operates at a multiple.
[[nodiscard]] bool Operates(const Characteristic& settings, double multiple);

}  // namespace zentab::curves

#include "curves/characteristic.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "mathparser/math_parser.h"

namespace zentab::curves {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kHighestStart = 1.3;

bool IsPositive(double value) { return std::isfinite(value) && value > 0.0; }

// M^alpha - 1 without the digits that a subtraction loses near the pickup value.
double PowerLessOne(double multiple, double alpha) {
  return std::expm1(alpha * std::log(multiple));
}

// The time constant's factor: ln((M^2 - Mp^2) / (M^2 - factor^2)).
double Heating(double multiple, double previous, double factor) {
  const double gained = (factor - previous) * (factor + previous);
  return std::log1p(gained / ((multiple - factor) * (multiple + factor)));
}

Fault BadSetting(const char* name) { return {FaultKind::BadSetting, 0.0, name}; }

std::optional<Fault> FaultOfConstants(const Characteristic& settings) {
  const Constants& own = settings.constants;
  switch (RowOf(settings.family).form) {
    case Form::Inverse:
    case Form::Above:
    case Form::Below:
      if (!RowOf(settings.family).hasOwnConstants) return std::nullopt;
      if (!std::isfinite(own.k)) return BadSetting("k");
      if (!std::isfinite(own.alpha) || own.alpha == 0.0) return BadSetting("alpha");
      if (!std::isfinite(own.c)) return BadSetting("c");
      return std::nullopt;
    case Form::Square:
    case Form::Constant:
      if (!IsPositive(settings.seconds)) return BadSetting("constant");
      return std::nullopt;
    case Form::Heating:
      if (!IsPositive(settings.tau)) return BadSetting("tau");
      if (!IsPositive(settings.factor)) return BadSetting("factor");
      if (!(settings.previous >= 0.0 && settings.previous < settings.factor)) {
        return BadSetting("previous");
      }
      return std::nullopt;
    case Form::ElectroMechanic:
    case Form::Free:
      break;
  }
  return std::nullopt;
}

std::optional<Fault> FaultOfSettings(const Characteristic& settings) {
  if (!IsPositive(settings.multiplier)) return BadSetting("TMS");
  if (!IsPositive(settings.pickup)) return BadSetting("pickup");
  if (!(settings.start >= 1.0 && settings.start <= kHighestStart)) return BadSetting("start");
  if (settings.minimumTime &&
      !(std::isfinite(*settings.minimumTime) && *settings.minimumTime >= 0)) {
    return BadSetting("minimum time");
  }
  if (settings.maximumTime && !(IsPositive(*settings.maximumTime) &&
                                *settings.maximumTime >= settings.minimumTime.value_or(0.0))) {
    return BadSetting("maximum time");
  }
  if (settings.step && !(IsPositive(settings.step->multiple) && IsPositive(settings.step->time))) {
    return BadSetting("step");
  }
  return FaultOfConstants(settings);
}

}  // namespace

double FormulaTime(const Characteristic& settings, double multiple) {
  const FamilyRow& row = RowOf(settings.family);
  const auto& [k, alpha, c] = row.hasOwnConstants ? settings.constants : row.constants;
  const double multiplier = settings.multiplier;
  switch (row.form) {
    case Form::Inverse:
      return multiplier * (k / PowerLessOne(multiple, alpha) + c);
    case Form::Above:
      return multiplier * k / PowerLessOne(multiple, alpha) + c;
    case Form::Below:
      return multiplier * k / -PowerLessOne(multiple, alpha) + c;
    case Form::ElectroMechanic:
      return multiplier / (k - c / multiple);
    case Form::Square:
      return multiplier * settings.seconds / (multiple * multiple);
    case Form::Constant:
      return multiplier * settings.seconds;
    case Form::Heating:
      return multiplier * settings.tau * Heating(multiple, settings.previous, settings.factor);
    case Form::Free:
      break;
  }
  return kNone;
}

bool Operates(const Characteristic& settings, double multiple) {
  switch (RowOf(settings.family).form) {
    case Form::Below:
      return multiple >= 0.0 && multiple * settings.start < 1.0;
    case Form::Heating:
      return multiple > std::max(settings.start, settings.factor);
    case Form::Free:
      return true;
    default:
      return multiple > settings.start;
  }
}

Outcome<CharacteristicCurve> CharacteristicCurve::Of(const Characteristic& characteristic) {
  if (const std::optional<Fault> fault = FaultOfSettings(characteristic)) return *fault;
  CharacteristicCurve curve(characteristic);
  if (characteristic.family == Family::Equation) {
    if (const std::optional<Fault> fault = curve.Compile()) return *fault;
  }
  return curve;
}

std::optional<Fault> CharacteristicCurve::Compile() {
  equation_ = std::make_shared<mathparser::MathParser>();
  if (!equation_->StoreExpression(settings_.equation)) {
    return Fault{FaultKind::BadEquation, 0.0, equation_->ErrorDescription()};
  }
  for (int variable = 1; variable <= equation_->VarTop(); ++variable) {
    const std::string_view name = equation_->VarName(variable);
    if (name == "v") {
      loadVariable_ = variable;
    } else if (name == "pickup") {
      equation_->VarValue(variable, settings_.pickup);
    } else if (name == "multiplier") {
      equation_->VarValue(variable, settings_.multiplier);
    } else {
      return Fault{FaultKind::UnknownName, 0.0, std::string(name)};
    }
  }
  return std::nullopt;
}

double CharacteristicCurve::EquationAt(double load) const {
  equation_->VarValue(loadVariable_, load);
  try {
    return equation_->Eval();
  } catch (const mathparser::EvaluationError&) {
    return kNone;
  }
}

Outcome<double> CharacteristicCurve::TimeAt(double load) const {
  const double multiple = load / Unit();
  if (!std::isfinite(multiple) || !Operates(settings_, multiple)) {
    return Fault{
        TripsBelow(settings_.family) ? FaultKind::AtOrAbovePickup : FaultKind::AtOrBelowPickup,
        load};
  }
  if (settings_.step) {
    const bool isBelow = TripsBelow(settings_.family);
    const double from = settings_.step->multiple;
    if (isBelow ? multiple <= from : multiple >= from) return settings_.step->time;
  }
  double time =
      settings_.family == Family::Equation ? EquationAt(load) : FormulaTime(settings_, multiple);
  if (!IsPositive(time)) return Fault{FaultKind::NoFiniteTime, load};
  time = std::max(time, settings_.minimumTime.value_or(time));
  return std::min(time, settings_.maximumTime.value_or(time));
}

std::optional<double> CharacteristicCurve::Time(double load) const {
  const Outcome<double> time = TimeAt(load);
  const double* const value = std::get_if<double>(&time);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<double> CharacteristicCurve::JumpAt() const {
  return settings_.step ? std::optional(settings_.step->multiple * Unit()) : std::nullopt;
}

}  // namespace zentab::curves

#include "app/standard_curve.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using curves::Family;
using curves::Form;
using T = texts::CurveDialogTexts;

constexpr std::array<CurveFieldRow, 19> kFields = {{
    {"tms", "1", &T::multiplier},
    {"k", "", &T::k},
    {"alpha", "", &T::alpha},
    {"c", "", &T::c},
    {"definite", "1", &T::definiteTime},
    {"square", "1", &T::timeAtPickup},
    {"tau", "60", &T::tau},
    {"previous", "0", &T::previous},
    {"factor", "1", &T::factor},
    {"equation", "multiplier*0.14/((v)^0.02-1)", &T::equation},
    {"start", "1", &T::start},
    {"min", "", &T::minimumTime},
    {"max", "", &T::maximumTime},
    {"step", "", &T::stepMultiple},
    {"steptime", "", &T::stepTime},
    {"from", "", &T::from},
    {"to", "", &T::to},
    {"points", "26", &T::points},
    {"loads", "", &T::loads},
}};

// The fields that the settings of a fault stand in; "step" may mean either of its two.
constexpr std::pair<std::string_view, std::string_view> kStandardSettings[] = {
    {"TMS", "tms"},           {"k", "k"},
    {"alpha", "alpha"},       {"c", "c"},
    {"tau", "tau"},           {"factor", "factor"},
    {"previous", "previous"}, {"start", "start"},
    {"minimum time", "min"},  {"maximum time", "max"},
    {"step", "step"}};

std::string FieldOfSetting(std::string_view setting, Family family) {
  if (setting == "constant") {
    return curves::RowOf(family).form == Form::Square ? "square" : "definite";
  }
  for (const auto& [name, field] : kStandardSettings) {
    if (name == setting) return std::string(field);
  }
  return {};
}

const std::string& LabelOf(std::string_view field, const Session& session) {
  static const std::string none;
  const auto row = std::ranges::find(kFields, field, &CurveFieldRow::name);
  return row == kFields.end() ? none : session.texts.curveDialogs.*row->label;
}

FormFault FaultIn(const curves::Fault& fault, Family family, const Session& session) {
  curves::Fault told = fault;
  FormFault result;
  if (fault.kind == curves::FaultKind::BadSetting) {
    result.field = FieldOfSetting(fault.text, family);
    if (!result.field.empty()) told.text = PlainLabel(LabelOf(result.field, session), session);
  }
  const bool isEquation =
      fault.kind == curves::FaultKind::BadEquation || fault.kind == curves::FaultKind::UnknownName;
  if (isEquation) result.field = "equation";
  result.text = curves::FaultText(told, session.texts.curve, session.localeDecimalSeparator);
  return result;
}

// Reads numbers of a form; the first that is none is the fault.
class NumberReader {
 public:
  NumberReader(const FormValues& values, const Session& session)
      : values_(values), session_(session) {}

  void Take(std::string_view field, double& number) {
    const auto read = NumberIn(values_, field, session_.localeDecimalSeparator);
    if (read) {
      number = *read;
    } else {
      Tell(field);
    }
  }
  void Take(std::string_view field, std::optional<double>& number) {
    if (ValueOf(values_, field).find_first_not_of(' ') == std::string::npos) return;
    Take(field, number.emplace());
  }
  void Tell(std::string_view field) {
    if (fault_) return;
    const std::string label = PlainLabel(LabelOf(field, session_), session_);
    fault_ = FormFault{std::string(field),
                       Expanded(session_, session_.texts.curveDialogs.noNumber, {label})};
  }
  [[nodiscard]] const std::optional<FormFault>& Fault() const { return fault_; }

 private:
  const FormValues& values_;
  const Session& session_;
  std::optional<FormFault> fault_;
};

void TakeFormula(const FormValues& values, NumberReader& reader, curves::Characteristic& result) {
  const curves::FamilyRow& row = curves::RowOf(result.family);
  reader.Take("tms", result.multiplier);
  if (row.hasOwnConstants) {
    reader.Take("k", result.constants.k);
    reader.Take("alpha", result.constants.alpha);
    reader.Take("c", result.constants.c);
  }
  if (row.form == Form::Constant) reader.Take("definite", result.seconds);
  if (row.form == Form::Square) reader.Take("square", result.seconds);
  if (row.form == Form::Heating) {
    reader.Take("tau", result.tau);
    reader.Take("previous", result.previous);
    reader.Take("factor", result.factor);
  }
  if (row.form == Form::Free) result.equation = ValueOf(values, "equation");
}

void TakeLimits(NumberReader& reader, curves::Characteristic& result) {
  if (result.family != Family::Equation) reader.Take("start", result.start);
  reader.Take("min", result.minimumTime);
  reader.Take("max", result.maximumTime);
  std::optional<double> multiple;
  std::optional<double> time;
  reader.Take("step", multiple);
  reader.Take("steptime", time);
  if (multiple.has_value() != time.has_value()) reader.Tell(multiple ? "steptime" : "step");
  if (multiple && time) result.step = curves::DefiniteStep{*multiple, *time};
}

curves::Spacing SpacingOf(std::string_view spacing) {
  if (spacing == "best") return curves::Spacing::Best;
  return spacing == "linear" ? curves::Spacing::Linear : curves::Spacing::Logarithmic;
}

// The range, number and spacing that a form gives.
std::variant<curves::Sampling, FormFault> SamplingIn(const FormValues& values,
                                                     const Session& session) {
  NumberReader reader(values, session);
  curves::Sampling sampling;
  double points = 0.0;
  reader.Take("from", sampling.from);
  reader.Take("to", sampling.to);
  reader.Take("points", points);
  if (reader.Fault()) return *reader.Fault();
  // What is no number of points is one too few.
  const bool isCount = points >= 2.0 && points <= 1000.0 && points == std::floor(points);
  sampling.points = isCount ? static_cast<std::size_t>(points) : 0;
  sampling.spacing = SpacingOf(ValueOf(values, "spacing"));
  return sampling;
}

std::variant<std::vector<double>, FormFault> GivenLoads(const FormValues& values,
                                                        const Session& session) {
  const auto loads = NumbersIn(values, "loads", session.localeDecimalSeparator);
  if (loads) return *loads;
  const std::string label = PlainLabel(LabelOf("loads", session), session);
  return FormFault{"loads", Expanded(session, session.texts.curveDialogs.noNumbers, {label})};
}

bool HasGivenLoads(const FormValues& values) { return ValueOf(values, "spacing") == "given"; }

using Chosen = std::variant<curves::ChosenPoints, FormFault>;

Chosen TakePoints(const FormValues& values, const curves::CharacteristicCurve& curve,
                  const Session& session) {
  curves::Outcome<curves::ChosenPoints> outcome;
  if (HasGivenLoads(values)) {
    const auto loads = GivenLoads(values, session);
    if (const auto* const fault = std::get_if<FormFault>(&loads)) return *fault;
    outcome = curves::SampleAt(curve, std::get<std::vector<double>>(loads));
  } else {
    const auto sampling = SamplingIn(values, session);
    if (const auto* const fault = std::get_if<FormFault>(&sampling)) return *fault;
    outcome = curves::Sample(curve, std::get<curves::Sampling>(sampling));
  }
  if (const curves::Fault* const fault = curves::FaultOf(outcome)) {
    return FaultIn(*fault, curve.Settings().family, session);
  }
  return std::get<curves::ChosenPoints>(std::move(outcome));
}

}  // namespace

std::span<const CurveFieldRow> CurveFields() { return kFields; }

bool HasField(std::string_view name, Family family, std::string_view spacing) {
  const curves::FamilyRow& row = curves::RowOf(family);
  if (name == "k" || name == "alpha" || name == "c") return row.hasOwnConstants;
  if (name == "definite") return row.form == Form::Constant;
  if (name == "square") return row.form == Form::Square;
  if (name == "tau" || name == "previous" || name == "factor") return row.form == Form::Heating;
  if (name == "equation") return row.form == Form::Free;
  if (name == "start") return row.form != Form::Free;
  if (name == "loads") return spacing == "given";
  if (name == "from" || name == "to" || name == "points") return spacing != "given";
  return true;
}

FormValues FirstCurveValues(Family family, const Session& session) {
  const auto shown = [&](double number) {
    return texts::NumberText(number, session.localeDecimalSeparator);
  };
  const curves::FamilyRow& row = curves::RowOf(family);
  FormValues values = ConstantValues(row.constants, session);
  values["family"] = row.id;
  values["spacing"] = "log";
  for (const CurveFieldRow& field : kFields) {
    const std::optional<double> number = texts::WholeNumber(field.first);
    values.try_emplace(std::string(field.name), number ? shown(*number) : std::string(field.first));
  }
  curves::Characteristic usual;
  usual.family = family;
  usual.absoluteLoads = session.modes.absoluteValues;
  usual.pickup = PickupOf(session).value_or(1.0);
  const curves::Sampling sampling = curves::UsualSampling(usual);
  values["from"] = shown(sampling.from);
  values["to"] = shown(sampling.to);
  return values;
}

Family FamilyIn(const FormValues& values) {
  return curves::FamilyOf(ValueOf(values, "family")).value_or(Family::IecA);
}

std::string PlainLabel(std::string label, const Session& session) {
  // What a language writes behind the word for its key goes as a whole.
  if (const std::size_t key = label.find("(&");
      key != std::string::npos && key + 3 < label.size()) {
    label.erase(key, 4);
  }
  std::erase(label, '&');
  return Expanded(session, label, {LoadUnit(session)});
}

const std::string& LoadUnit(const Session& session) {
  return LoadUnitOf(session.modes.absoluteValues, session.instrument, session);
}

std::variant<curves::CharacteristicCurve, FormFault> CharacteristicIn(const FormValues& values,
                                                                      const Session& session) {
  curves::Characteristic characteristic;
  characteristic.family = FamilyIn(values);
  characteristic.absoluteLoads = session.modes.absoluteValues;
  const std::optional<double> pickup = PickupOf(session);
  if (characteristic.absoluteLoads && !pickup) {
    return FaultIn({curves::FaultKind::PickupNeeded}, characteristic.family, session);
  }
  characteristic.pickup = pickup.value_or(1.0);
  NumberReader reader(values, session);
  TakeFormula(values, reader, characteristic);
  TakeLimits(reader, characteristic);
  if (reader.Fault()) return *reader.Fault();
  auto curve = curves::CharacteristicCurve::Of(characteristic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) {
    return FaultIn(*fault, characteristic.family, session);
  }
  return std::get<curves::CharacteristicCurve>(std::move(curve));
}

std::variant<CurveProposal, FormFault> ProposeCurve(const FormValues& values,
                                                    const Session& session) {
  const auto curve = CharacteristicIn(values, session);
  if (const auto* const fault = std::get_if<FormFault>(&curve)) return *fault;
  const auto& prepared = std::get<curves::CharacteristicCurve>(curve);
  Chosen chosen = TakePoints(values, prepared, session);
  if (auto* const fault = std::get_if<FormFault>(&chosen)) return *fault;
  auto& points = std::get<curves::ChosenPoints>(chosen);
  CurveProposal proposal;
  // Of one point, or of given ones in any order, there are no lines to speak of.
  if (!HasGivenLoads(values)) proposal.deviation = points.deviation;
  proposal.points = InGridModes(std::move(points.points), session);
  return proposal;
}

std::variant<std::vector<double>, FormFault> LoadsIn(const FormValues& values,
                                                     const Session& session) {
  if (HasGivenLoads(values)) return GivenLoads(values, session);
  const auto sampling = SamplingIn(values, session);
  if (const auto* const fault = std::get_if<FormFault>(&sampling)) return *fault;
  const auto loads = curves::SpacedLoads(std::get<curves::Sampling>(sampling));
  if (const curves::Fault* const fault = curves::FaultOf(loads)) {
    return FaultIn(*fault, Family::IecA, session);
  }
  return std::get<std::vector<double>>(loads);
}

std::string NameOf(const curves::Characteristic& characteristic, const Session& session) {
  const std::string& family = session.texts.curve.*curves::RowOf(characteristic.family).name;
  return family + ", " + PlainLabel(session.texts.curveDialogs.multiplier, session) + ' ' +
         texts::NumberText(characteristic.multiplier, session.localeDecimalSeparator);
}

std::vector<OwnConstants> OwnConstantsIn(const FormValues& kept) {
  std::vector<OwnConstants> result;
  for (const auto& [name, text] : kept) {
    const auto numbers = NumbersIn(kept, name, ".");
    if (!numbers || numbers->size() != 3) continue;
    result.push_back({name, {(*numbers)[0], (*numbers)[1], (*numbers)[2]}});
  }
  return result;
}

FormValues ConstantValues(const curves::Constants& constants, const Session& session) {
  const auto shown = [&](double number) {
    return texts::NumberText(number, session.localeDecimalSeparator);
  };
  return {{"k", shown(constants.k)}, {"alpha", shown(constants.alpha)}, {"c", shown(constants.c)}};
}

void KeepOwnConstants(const OwnConstants& own, FormValues& kept) {
  const auto& [k, alpha, c] = own.constants;
  kept[own.name] = texts::NumberText(k, ".") + ' ' + texts::NumberText(alpha, ".") + ' ' +
                   texts::NumberText(c, ".");
}

}  // namespace zentab::app

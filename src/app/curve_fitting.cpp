#include "app/curve_fitting.h"

#include <cmath>

#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr double kFiguresExactly = 1e-5;  // as a ratio

// What a fit says is not known to more figures.
std::string Figures(double number, const Session& session) {
  return texts::ShortText(number, std::abs(number) * kFiguresExactly,
                          session.localeDecimalSeparator);
}

std::string NameOf(curves::FitParameter parameter, const Session& session) {
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  switch (parameter) {
    case curves::FitParameter::Multiplier:
      return texts.fitMultiplier;
    case curves::FitParameter::Pickup:
      return texts.fitPickup;
    case curves::FitParameter::K:
      return "k";
    case curves::FitParameter::Alpha:
      return "α";
    case curves::FitParameter::C:
      return "c";
  }
  return {};
}

std::string RemarkOn(const curves::FamilyFit& fit, const Session& session) {
  std::string open;
  std::string known;
  for (const curves::FittedValue& value : fit.values) {
    const std::string name = NameOf(value.parameter, session);
    if (!value.isDetermined) {
      open += (open.empty() ? "" : ", ") + name;
    } else if (value.uncertainty) {
      known += (known.empty() ? "" : ", ") + name + " ± " + Figures(*value.uncertainty, session);
    }
  }
  if (open.empty()) return known;
  return Expanded(session, session.texts.curve.notDetermined, {open}) +
         (known.empty() ? "" : "; " + known);
}

}  // namespace

std::variant<std::vector<curves::FamilyFit>, FormFault> FitGrid(const Session& session,
                                                                const std::set<int>& excluded,
                                                                bool pickupFree) {
  const GridCurve grid = CurveInGrid(session);
  curves::FitOptions options;
  options.instrument = session.instrument;
  options.pickupFree = pickupFree;
  if (session.modes.absoluteValues) options.pickup = PickupOf(session);
  std::vector<std::size_t> places;
  for (std::size_t at = 0; at < grid.rows.size(); ++at) {
    if (excluded.contains(grid.rows[at])) places.push_back(at);
  }
  curves::FitResult result = curves::Fit(grid.table.InSeconds(), places, options);
  if (!result.fits.empty()) return std::move(result.fits);
  const bool lacksPickup = session.modes.absoluteValues && !options.pickup && !pickupFree;
  curves::Fault fault = {curves::FaultKind::TooFewPoints, 2.0};
  if (!result.failed.empty()) fault = result.failed.front().second;
  if (lacksPickup) fault = {curves::FaultKind::PickupNeeded};
  return FormFault{{},
                   curves::FaultText(fault, session.texts.curve, session.localeDecimalSeparator)};
}

FitRow RowOf(const curves::FamilyFit& fit, const Session& session) {
  const curves::Characteristic& found = fit.characteristic;
  FitRow row;
  row.family = session.texts.curve.*curves::RowOf(found.family).name;
  if (found.family == curves::Family::Own) {
    const auto& [k, alpha, c] = found.constants;
    row.constants = "k " + Figures(k, session) + ", α " + Figures(alpha, session) + ", c " +
                    Figures(c, session);
  } else {
    row.multiplier = Figures(found.multiplier, session);
  }
  row.pickup = Figures(found.pickup, session);
  row.rootMeanSquare = FixedNumber(fit.rootMeanSquare * texts::kPercent, 2, session);
  row.largest = FixedNumber(fit.largest * texts::kPercent, 2, session);
  row.remark = RemarkOn(fit, session);
  return row;
}

FittedTable TableOf(const curves::FamilyFit& fit, const Session& session) {
  FittedTable result;
  const auto curve = curves::CharacteristicCurve::Of(fit.characteristic);
  const auto* const prepared = std::get_if<curves::CharacteristicCurve>(&curve);
  if (prepared == nullptr) return result;
  for (const curves::Point& point : CurveInGrid(session).table.points) {
    const std::optional<double> time = prepared->Time(point.load);
    if (time) result.proposal.points.push_back({point.load, *time});
    result.leftOut += time ? 0U : 1U;
  }
  result.proposal.points = InGridModes(std::move(result.proposal.points), session);
  return result;
}

}  // namespace zentab::app

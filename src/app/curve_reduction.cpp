#include "app/curve_reduction.h"

#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "curves/thinning.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

FormFault Told(const curves::Fault& fault, const Session& session) {
  return {{}, curves::FaultText(fault, session.texts.curve, session.localeDecimalSeparator)};
}

curves::Outcome<curves::TableCurve> CurveOfGrid(const Session& session, bool logarithmic) {
  return curves::TableCurve::Of(CurveInGrid(session).table.points,
                                logarithmic ? curves::Axes::Logarithmic : curves::Axes::Linear);
}

}  // namespace

std::variant<CurveProposal, FormFault> ProposeThinned(const Session& session, std::size_t count,
                                                      bool logarithmic) {
  const auto curve = CurveOfGrid(session, logarithmic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) return Told(*fault, session);
  const curves::ChosenPoints thinned = curves::Thin(std::get<curves::TableCurve>(curve), count);
  return CurveProposal{thinned.points, thinned.deviation};
}

FormValues FirstResampleValues(const Session& session) {
  FormValues values = {{"spacing", "log"}, {"points", "26"}};
  const auto curve = CurveOfGrid(session, false);
  if (const auto* const known = std::get_if<curves::TableCurve>(&curve)) {
    values["from"] = texts::NumberText(known->From(), session.localeDecimalSeparator);
    values["to"] = texts::NumberText(known->To(), session.localeDecimalSeparator);
  }
  return values;
}

std::variant<CurveProposal, FormFault> ProposeResampled(const FormValues& values,
                                                        const Session& session, bool logarithmic) {
  const auto curve = CurveOfGrid(session, logarithmic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) return Told(*fault, session);
  const auto loads = LoadsIn(values, session);
  if (const auto* const fault = std::get_if<FormFault>(&loads)) return *fault;
  auto points =
      curves::Resample(std::get<curves::TableCurve>(curve), std::get<std::vector<double>>(loads));
  if (const curves::Fault* const fault = curves::FaultOf(points)) return Told(*fault, session);
  return CurveProposal{std::get<std::vector<curves::Point>>(std::move(points)), std::nullopt};
}

}  // namespace zentab::app

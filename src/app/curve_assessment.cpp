#include "app/curve_assessment.h"

#include <algorithm>
#include <cmath>

#include "app/assessment_texts.h"
#include "app/grid_curve.h"
#include "app/session_texts.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using T = texts::CurveDialogTexts;
using curves::kMillisecondsPerSecond;

constexpr int kBandPoints = 240;
constexpr double kShownExactly = 5e-7;  // as a ratio: six digits or seven

struct LimitField {
  std::string_view name;
  std::string_view first;
  std::string T::*label;
  double curves::Limits::*limit;
};
constexpr LimitField kLimits[] = {
    {"percent", "5", &T::percent, &curves::Limits::percent},
    {"ms", "", &T::milliseconds, &curves::Limits::milliseconds},
    {"class", "", &T::assignedError, &curves::Limits::assignedError},
    {"load", "", &T::loadPercent, &curves::Limits::loadPercent},
};
constexpr std::string_view kFactors = "factors";

bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

std::string Shown(double number, const Session& session) {
  return texts::ShortText(number, std::abs(number) * kShownExactly, session.localeDecimalSeparator);
}

std::optional<std::vector<curves::ClassStep>> StepsIn(const std::string& text,
                                                      const Session& session) {
  std::vector<curves::ClassStep> steps;
  for (std::size_t begin = text.find_first_not_of(" ;"); begin != std::string::npos;) {
    const std::size_t end = std::min(text.find_first_of(" ;", begin), text.size());
    const std::string pair = text.substr(begin, end - begin);
    const std::size_t colon = pair.find(':');
    if (colon == std::string::npos) return std::nullopt;
    const FormValues numbers = {{"multiple", pair.substr(0, colon)},
                                {"factor", pair.substr(colon + 1)}};
    const auto multiple = NumberIn(numbers, "multiple", session.localeDecimalSeparator);
    const auto factor = NumberIn(numbers, "factor", session.localeDecimalSeparator);
    if (!multiple || !factor || *multiple < 0.0 || *factor < 0.0) return std::nullopt;
    if (!steps.empty() && *multiple <= steps.back().multiple) return std::nullopt;
    steps.push_back({*multiple, *factor});
    begin = text.find_first_not_of(" ;", end);
  }
  return steps;
}

std::variant<curves::Reference, FormFault> Prepared(const ChosenReference& reference,
                                                    const Session& session) {
  if (const auto* const values = std::get_if<FormValues>(&reference.curve)) {
    const auto curve = CharacteristicIn(*values, session);
    if (const auto* const fault = std::get_if<FormFault>(&curve)) return *fault;
    return curves::ReferenceOf(std::get<curves::CharacteristicCurve>(curve));
  }
  auto made = curves::ReferenceOf(std::get<curves::EntryPoints>(reference.curve),
                                  session.modes.absoluteValues, PickupOf(session));
  if (const curves::Fault* const fault = curves::FaultOf(made)) {
    return FormFault{
        {}, curves::FaultText(*fault, session.texts.curve, session.localeDecimalSeparator)};
  }
  return std::get<curves::Reference>(std::move(made));
}

std::vector<BandPoint> BandOver(const std::vector<curves::Point>& points,
                                const curves::Reference& reference, const curves::Limits& limits,
                                double timeFactor) {
  const auto [low, high] = std::ranges::minmax_element(points, {}, &curves::Point::load);
  std::vector<double> loads;
  loads.reserve(points.size() + kBandPoints + 1);
  for (const curves::Point& point : points) loads.push_back(point.load);
  const bool isLogarithmic = low->load > 0.0;
  for (int at = 0; at <= kBandPoints; ++at) {
    const double part = static_cast<double>(at) / kBandPoints;
    loads.push_back(isLogarithmic ? low->load * std::pow(high->load / low->load, part)
                                  : std::lerp(low->load, high->load, part));
  }
  std::ranges::sort(loads);
  std::vector<BandPoint> band;
  for (const double load : loads) {
    const std::optional<double> nominal = reference.time(load);
    const std::optional<double> limit = curves::LimitAt(load, reference, limits);
    if (!nominal || !limit) continue;
    band.push_back({load, *nominal * timeFactor, (*nominal - *limit) * timeFactor,
                    (*nominal + *limit) * timeFactor});
  }
  return band;
}

AssessedRow RowFor(const curves::AssessedPoint& point, const curves::Point& stored, int row,
                   const Session& session) {
  AssessedRow result = {row, {}, point.verdict};
  result.numbers[0] = Shown(stored.load, session);
  if (point.multiple) result.numbers[1] = FixedNumber(*point.multiple, 3, session);
  result.numbers[2] = Shown(stored.time, session);
  std::ranges::copy(OutcomeOf(point, session), result.numbers.begin() + 3);
  return result;
}

std::string Sentences(const curves::Assessment& assessment, const Session& session) {
  const std::string largest = LargestDeviationIn(assessment, session);
  return VerdictOn(assessment, session) + (largest.empty() ? "" : " · " + largest);
}

}  // namespace

FormValues FirstLimits(const Session& session) {
  FormValues values;
  for (const LimitField& field : kLimits) values[std::string(field.name)] = field.first;
  std::string factors;
  for (const auto& [multiple, factor] : curves::StandardClassSteps()) {
    factors +=
        (factors.empty() ? "" : " ") + Shown(multiple, session) + ':' + Shown(factor, session);
  }
  values[std::string(kFactors)] = factors;
  return values;
}

std::variant<curves::Limits, FormFault> LimitsIn(const FormValues& values, const Session& session) {
  const T& texts = session.texts.curveDialogs;
  curves::Limits limits;
  for (const LimitField& field : kLimits) {
    if (IsBlank(ValueOf(values, field.name))) continue;
    const auto number = NumberIn(values, field.name, session.localeDecimalSeparator);
    if (!number || *number < 0.0) {
      return FormFault{
          std::string(field.name),
          Expanded(session, texts.badLimit, {PlainLabel(texts.*field.label, session)})};
    }
    limits.*field.limit = *number;
  }
  const auto steps = StepsIn(ValueOf(values, kFactors), session);
  if (!steps) {
    return FormFault{std::string(kFactors),
                     Expanded(session, texts.badFactors, {PlainLabel(texts.factors, session)})};
  }
  limits.classSteps = *steps;
  return limits;
}

std::variant<GridAssessment, FormFault> AssessGrid(const Session& session,
                                                   const ChosenReference& reference,
                                                   const FormValues& limits) {
  const auto made = LimitsIn(limits, session);
  if (const auto* const fault = std::get_if<FormFault>(&made)) return *fault;
  const auto& wanted = std::get<curves::Limits>(made);
  const auto prepared = Prepared(reference, session);
  if (const auto* const fault = std::get_if<FormFault>(&prepared)) return *fault;
  const auto& held = std::get<curves::Reference>(prepared);
  const GridCurve grid = CurveInGrid(session);
  auto assessed = curves::Assess(grid.table.InSeconds(), held, wanted);
  if (const curves::Fault* const fault = curves::FaultOf(assessed)) {
    return FormFault{
        {}, curves::FaultText(*fault, session.texts.curve, session.localeDecimalSeparator)};
  }
  GridAssessment result;
  result.assessment = std::get<curves::Assessment>(std::move(assessed));
  result.limits = wanted;
  const double timeFactor = session.modes.milliseconds ? kMillisecondsPerSecond : 1.0;
  for (std::size_t at = 0; at < grid.rows.size(); ++at) {
    result.rows.push_back(
        RowFor(result.assessment.points[at], grid.table.points[at], grid.rows[at], session));
  }
  result.band = BandOver(grid.table.points, held, wanted, timeFactor);
  result.verdict = Sentences(result.assessment, session);
  return result;
}

std::array<std::string, AssessedRow::kNumbers + 1> AssessmentHeadings(const Session& session) {
  const T& texts = session.texts.curveDialogs;
  return {texts.columnLoad,      texts.columnMultiple, texts.columnMeasured, texts.columnNominal,
          texts.columnDeviation, texts.columnPercent,  texts.columnLimit,    texts.columnVerdict};
}

std::string TextOf(const GridAssessment& assessment, const ChosenReference& reference,
                   const Session& session) {
  std::string text = session.texts.curveDialogs.reference + '\t' + reference.name + '\n';
  const auto headings = AssessmentHeadings(session);
  for (const std::string& heading : headings) {
    text += heading + (&heading == &headings.back() ? '\n' : '\t');
  }
  for (const AssessedRow& row : assessment.rows) {
    for (const std::string& number : row.numbers) text += number + '\t';
    text += WordFor(row.verdict, session) + '\n';
  }
  return text + assessment.verdict + '\n';
}

}  // namespace zentab::app

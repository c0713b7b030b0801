#include "app/report_assessment_rows.h"

#include <utility>

#include "app/assessment_texts.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

std::string SettingText(double number, const Session& session) {
  return texts::NumberText(number, session.localeDecimalSeparator);
}

}  // namespace

void AddAssessment(const ReportAssessment& assessment, const Session& session, ReportPage& page) {
  const texts::ReportTexts& words = session.texts.report;
  const std::string unit = session.modes.milliseconds ? "ms" : "s";
  for (const std::string& heading : {Expanded(session, words.nominal, {unit}), words.deviation,
                                     Expanded(session, words.ratio), words.limit, words.result}) {
    page.headings.push_back(heading);
  }
  auto point = page.curve.points.begin();
  for (std::size_t row = 0; row < page.rows.size(); ++row) {
    std::vector<std::string>& cells = page.rows[row];
    const bool isPoint =
        point != page.curve.points.end() && cells.front() == std::to_string(point->row);
    if (isPoint) {
      const auto index = static_cast<std::size_t>(point++ - page.curve.points.begin());
      const curves::AssessedPoint& assessed = assessment.result.points[index];
      page.marked[row] = assessed.verdict != curves::Verdict::Passed;
      for (std::string& cell : OutcomeOf(assessed, session)) cells.push_back(std::move(cell));
      cells.push_back(WordFor(assessed.verdict, session));
    }
    cells.resize(page.headings.size());
  }
  page.assessment = {VerdictOn(assessment.result, session)};
  std::string largest = LargestDeviationIn(assessment.result, session);
  if (!largest.empty()) page.assessment.push_back(std::move(largest));
  page.assessment.insert(page.assessment.end(), assessment.limits.begin(), assessment.limits.end());
}

std::vector<std::string> LimitLines(const Session& session, std::string_view reference,
                                    const curves::Limits& limits) {
  const texts::ReportTexts& words = session.texts.report;
  const std::string percent = SettingText(limits.percent, session);
  const std::string accuracy = SettingText(limits.assignedError, session);
  const std::string milliseconds = SettingText(limits.milliseconds, session);
  const bool hasMilliseconds = limits.milliseconds > 0.0;
  std::vector<std::string> lines = {Expanded(session, words.reference, {reference})};
  const auto add = [&](const std::string& text, const texts::TemplateArguments& arguments) {
    lines.push_back(Expanded(session, text, arguments));
  };
  if (limits.assignedError > 0.0) {
    add(hasMilliseconds ? words.classAndMilliseconds : words.classLimit, {accuracy, milliseconds});
  }
  if (limits.percent > 0.0) {
    add(hasMilliseconds ? words.bothLimits : words.percentLimit, {percent, milliseconds});
  }
  if (limits.assignedError <= 0.0 && limits.percent <= 0.0)
    add(words.millisecondLimit, {milliseconds});
  if (limits.loadPercent > 0.0) {
    const std::string load = SettingText(limits.loadPercent, session);
    add(words.loadTolerance, {load});
  }
  return lines;
}

}  // namespace zentab::app

#include "app/report_assessment_rows.h"

#include <cmath>
#include <utility>

#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr double kPercent = 100.0;
constexpr double kMillisecondsPerSecond = 1000.0;
constexpr int kMillisecondDigits = 1;
constexpr int kSecondDigits = 4;
constexpr int kPercentDigits = 2;

std::string Number(double number, int digits, const Session& session) {
  return texts::SetDecimalSeparator(texts::FixedText(number, digits),
                                    session.localeDecimalSeparator);
}

std::string Signed(double number, int digits, const Session& session) {
  std::string text = Number(number, digits, session);
  const bool isNothing = text.find_first_of("123456789") == std::string::npos;
  return number > 0.0 && !isNothing ? '+' + text : text;
}

std::string Setting(double number, const Session& session) {
  return texts::NumberText(number, session.localeDecimalSeparator);
}

const std::string& VerdictText(curves::Verdict verdict, const texts::ReportTexts& words) {
  switch (verdict) {
    case curves::Verdict::Passed:
      return words.passed;
    case curves::Verdict::Failed:
      return words.failed;
    case curves::Verdict::Outside:
      break;
  }
  return words.outside;
}

// The cells behind load and time: nominal time, deviation in ms and per cent, limit, result.
std::vector<std::string> CellsOf(const curves::AssessedPoint& point, const Session& session) {
  const std::string& verdict = VerdictText(point.verdict, session.texts.report);
  if (point.verdict == curves::Verdict::Outside) return {{}, {}, {}, {}, verdict};
  const bool ms = session.modes.milliseconds;
  return {Number(point.nominal * (ms ? kMillisecondsPerSecond : 1.0),
                 ms ? kMillisecondDigits : kSecondDigits, session),
          Signed(point.deviation * kMillisecondsPerSecond, kMillisecondDigits, session),
          Signed(point.ratio * kPercent, kPercentDigits, session),
          Number(point.limit * kMillisecondsPerSecond, kMillisecondDigits, session), verdict};
}

std::vector<std::string> OutcomeLines(const curves::Assessment& assessment,
                                      const Session& session) {
  const texts::ReportTexts& words = session.texts.report;
  const std::string passed = std::to_string(assessment.passed);
  const std::string failed = std::to_string(assessment.failed);
  const std::string outside = std::to_string(assessment.outside);
  std::vector<std::string> lines = {
      Expanded(session, assessment.IsPassed() ? words.allPassed : words.notPassed,
               {passed, failed, outside})};
  if (assessment.passed + assessment.failed > 0) {
    const std::string largest = Number(assessment.largestRatio * kPercent, kPercentDigits, session);
    lines.push_back(Expanded(session, words.largest, {largest}));
  }
  return lines;
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
      for (std::string& cell : CellsOf(assessed, session)) cells.push_back(std::move(cell));
    }
    cells.resize(page.headings.size());
  }
  page.assessment = OutcomeLines(assessment.result, session);
  page.assessment.insert(page.assessment.end(), assessment.limits.begin(), assessment.limits.end());
}

std::vector<std::string> LimitLines(const Session& session, std::string_view reference,
                                    const curves::Limits& limits) {
  const texts::ReportTexts& words = session.texts.report;
  const std::string percent = Setting(limits.percent, session);
  const std::string accuracy = Setting(limits.assignedError, session);
  const std::string milliseconds = Setting(limits.milliseconds, session);
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
    const std::string load = Setting(limits.loadPercent, session);
    add(words.loadTolerance, {load});
  }
  return lines;
}

}  // namespace zentab::app

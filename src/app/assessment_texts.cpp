#include "app/assessment_texts.h"

#include "app/session_texts.h"
#include "curves/entry_points.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using curves::kMillisecondsPerSecond;

constexpr int kMillisecondDigits = 1;
constexpr int kSecondDigits = 4;
constexpr int kPercentDigits = 2;

std::string Signed(double number, int digits, const Session& session) {
  std::string text = FixedNumber(number, digits, session);
  const bool isNothing = text.find_first_of("123456789") == std::string::npos;
  return number > 0.0 && !isNothing ? '+' + text : text;
}

}  // namespace

std::array<std::string, 4> OutcomeOf(const curves::AssessedPoint& point, const Session& session) {
  if (point.verdict == curves::Verdict::Outside) return {};
  const bool ms = session.modes.milliseconds;
  return {FixedNumber(point.nominal * (ms ? kMillisecondsPerSecond : 1.0),
                      ms ? kMillisecondDigits : kSecondDigits, session),
          Signed(point.deviation * kMillisecondsPerSecond, kMillisecondDigits, session),
          Signed(point.ratio * texts::kPercent, kPercentDigits, session),
          FixedNumber(point.limit * kMillisecondsPerSecond, kMillisecondDigits, session)};
}

const std::string& WordFor(curves::Verdict verdict, const Session& session) {
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  if (verdict == curves::Verdict::Outside) return texts.outside;
  return verdict == curves::Verdict::Passed ? texts.passed : texts.failed;
}

std::string VerdictOn(const curves::Assessment& assessment, const Session& session) {
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  const std::string passed = std::to_string(assessment.passed);
  const std::string failed = std::to_string(assessment.failed);
  const std::string outside = std::to_string(assessment.outside);
  const std::string& all = texts::ForCount(assessment.passed, texts.onePassed, texts.allPassed);
  return Expanded(session, assessment.IsPassed() ? all : texts.notPassed,
                  {passed, failed, outside});
}

std::string LargestDeviationIn(const curves::Assessment& assessment, const Session& session) {
  if (assessment.passed + assessment.failed == 0) return {};
  const std::string largest =
      FixedNumber(assessment.largestRatio * texts::kPercent, kPercentDigits, session);
  return Expanded(session, session.texts.curveDialogs.largest, {largest});
}

}  // namespace zentab::app

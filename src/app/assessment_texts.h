#pragma once

#include <array>
#include <string>

#include "app/session.h"
#include "curves/assessment.h"

namespace zentab::app {

/// What an assessment says of a point, in the user's notation: nominal time in the session's unit,
/// deviation in ms and in per cent, limit in ms. Empty outside the reference.
[[nodiscard]] std::array<std::string, 4> OutcomeOf(const curves::AssessedPoint& point,
                                                   const Session& session);
[[nodiscard]] const std::string& WordFor(curves::Verdict verdict, const Session& session);

/// The whole in a sentence.
[[nodiscard]] std::string VerdictOn(const curves::Assessment& assessment, const Session& session);
/// The largest deviation in a sentence; empty where no point was within the reference.
[[nodiscard]] std::string LargestDeviationIn(const curves::Assessment& assessment,
                                             const Session& session);

}  // namespace zentab::app

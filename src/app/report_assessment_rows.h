#pragma once

#include "app/report_content.h"

namespace zentab::app {

/// Adds the columns and lines of an assessment to a page; one assessed point for each of the
/// page's curve, in its order. `session` has the modes and the words.
void AddAssessment(const ReportAssessment& assessment, const Session& session, ReportPage& page);

}  // namespace zentab::app

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/curve_arguments.h"
#include "curves/assessment.h"

namespace zentab::cli {

/// What an entry is assessed against and within which limits, as texts of options; empty ones were
/// not given.
struct AssessmentOptions {
  std::vector<std::string> against;  // table file and entry
  CharacteristicOptions characteristic;
  std::string percent;
  std::string milliseconds;
  std::string assignedError;
  std::string loadPercent;

  /// Whether there is anything to assess against.
  [[nodiscard]] bool HasReference() const {
    return !against.empty() || !characteristic.family.empty();
  }
};

void DeclareAssessment(CLI::App& command, AssessmentOptions& options);

[[nodiscard]] curves::Limits LimitsOf(const AssessmentOptions& options);

/// Assesses an entry of `file`. On anything but Done, what is wrong was said, by a command of that
/// name.
[[nodiscard]] Exit AssessEntry(const AssessmentOptions& options, const std::string& command,
                               const InputFile& file, const NamedPoints& entry,
                               const Console& console, curves::Assessment& assessment);

}  // namespace zentab::cli

#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/settings_store.h"

namespace zentab::app {

/// The most header lines that a report has room for.
inline constexpr std::size_t kMostHeaderLines = 5;

enum class Paper { A4, Letter };

/// What the program keeps of reports between two starts.
struct ReportSettings {
  std::vector<std::string> headerLines;  // none is empty
  Paper paper = Paper::A4;
  bool withAssessment = true;
};

/// Reads them; what is missing is as `fallback` has it.
[[nodiscard]] ReportSettings LoadReportSettings(const platform::SettingsStore& store,
                                                std::string_view title,
                                                const ReportSettings& fallback);
[[nodiscard]] std::error_code SaveReportSettings(platform::SettingsStore& store,
                                                 std::string_view title,
                                                 const ReportSettings& settings);

/// The lines of a text that are not blank, at most as many as there is room for.
[[nodiscard]] std::vector<std::string> HeaderLines(std::string_view text);

}  // namespace zentab::app

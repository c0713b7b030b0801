#include "app/report_settings.h"

#include "app/form_values.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kReportForm = "Report";
constexpr std::string_view kHeader = "header";
constexpr std::string_view kPaper = "paper";
constexpr std::string_view kLetter = "Letter";
constexpr std::string_view kAssessment = "assessment";

}  // namespace

ReportSettings LoadReportSettings(const platform::SettingsStore& store, std::string_view title,
                                  const ReportSettings& fallback) {
  ReportSettings settings = fallback;
  const FormValues values = LoadForm(store, title, kReportForm);
  settings.headerLines = HeaderLines(ValueOf(values, kHeader));
  const std::string& paper = ValueOf(values, kPaper);
  if (!paper.empty()) settings.paper = paper == kLetter ? Paper::Letter : Paper::A4;
  const std::string& with = ValueOf(values, kAssessment);
  if (!with.empty()) settings.withAssessment = with != "0";
  return settings;
}

std::error_code SaveReportSettings(platform::SettingsStore& store, std::string_view title,
                                   const ReportSettings& settings) {
  FormValues values;
  std::string& header = values[std::string(kHeader)];
  for (const std::string& line : settings.headerLines) header += line + '\n';
  values[std::string(kPaper)] = settings.paper == Paper::Letter ? kLetter : "A4";
  values[std::string(kAssessment)] = settings.withAssessment ? "1" : "0";
  return SaveForm(store, title, kReportForm, values);
}

std::vector<std::string> HeaderLines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin <= text.size() && lines.size() < kMostHeaderLines;) {
    const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
    const std::string_view line = texts::TrimBlanks(text.substr(begin, end - begin));
    if (!line.empty()) lines.emplace_back(line);
    begin = end + 1;
  }
  return lines;
}

}  // namespace zentab::app

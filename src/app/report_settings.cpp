#include "app/report_settings.h"

#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kSection = "Report";
constexpr std::string_view kPaper = "Paper";
constexpr std::string_view kLetter = "Letter";
constexpr std::string_view kAssessment = "Assessment";

std::string HeaderKey(std::size_t line) { return "Header" + std::to_string(line + 1); }

}  // namespace

ReportSettings LoadReportSettings(const platform::SettingsStore& store, std::string_view title,
                                  const ReportSettings& fallback) {
  ReportSettings settings = fallback;
  settings.headerLines.clear();
  for (std::size_t line = 0; line < kMostHeaderLines; ++line) {
    const std::string text = store.Read(title, kSection, HeaderKey(line)).value_or(std::string());
    if (!texts::TrimBlanks(text).empty()) settings.headerLines.push_back(text);
  }
  if (const auto paper = store.Read(title, kSection, kPaper)) {
    settings.paper = *paper == kLetter ? Paper::Letter : Paper::A4;
  }
  if (const auto with = store.Read(title, kSection, kAssessment)) {
    settings.withAssessment = *with != "0";
  }
  return settings;
}

std::error_code SaveReportSettings(platform::SettingsStore& store, std::string_view title,
                                   const ReportSettings& settings) {
  std::vector<platform::Setting> rows;
  for (std::size_t line = 0; line < kMostHeaderLines; ++line) {
    const bool isThere = line < settings.headerLines.size();
    rows.push_back({HeaderKey(line), isThere ? settings.headerLines[line] : std::string()});
  }
  rows.push_back({std::string(kPaper),
                  std::string(settings.paper == Paper::Letter ? kLetter : std::string_view("A4"))});
  rows.push_back({std::string(kAssessment), settings.withAssessment ? "1" : "0"});
  return store.Save(title, kSection, rows);
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

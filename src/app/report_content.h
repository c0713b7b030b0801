#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/session.h"
#include "app/session_texts.h"
#include "curves/assessment.h"
#include "editor/chart_curve.h"

namespace zentab::app {

/// How the points of a table were held against a reference, and within which limits, in words.
struct ReportAssessment {
  curves::Assessment result;
  std::vector<std::string> limits;  // a line each
};

/// A table to report on, its numbers as the grid shows them.
struct ReportedTable {
  std::string name;  // empty: it has none yet
  std::string file;
  bool isEdited = false;  // since it was read or stored
  editor::CurveGrid grid;
  editor::ValueModes modes;  // with the pickup value, empty where nobody knows it
  tables::Instrument instrument = tables::Instrument::None;
  /// One point for each of the grid's that has both numbers, else it is left out.
  std::optional<ReportAssessment> assessment;
};

/// The table of an entry's line, without a pickup value.
[[nodiscard]] ReportedTable TableOfLine(std::string_view name, std::string_view line,
                                        std::string_view localeDecimalSeparator);
/// The table that a session has in its grid.
[[nodiscard]] ReportedTable TableInGrid(const Session& session);

struct ReportField {
  std::string label;
  std::string value;

  friend bool operator==(const ReportField&, const ReportField&) = default;
};

/// What stands on the page of one table. Control characters are shown as texts::Visible does.
struct ReportPage {
  std::string title;
  std::vector<ReportField> fields;  // the file comes first
  editor::ChartCurve curve;
  LabelPair axes;
  std::vector<std::string> headings;           // of the columns; the first is the row's number
  std::vector<std::vector<std::string>> rows;  // of the points, a cell for each heading
  std::vector<bool> marked;                    // rows that are not within the limits
  std::vector<std::string> assessment;         // lines, the outcome first; empty: none
};

struct ReportHeading {
  std::vector<std::string> lines;  // the user's own, above everything else
  std::string date;                // 2026-11-22 02:20
};

struct Report {
  ReportHeading heading;
  std::vector<ReportPage> pages;
  texts::ReportTexts words;
  std::string decimalSeparator;
};

/// The pages of tables, in their order, at a local time. Units and words are the session's.
[[nodiscard]] Report ReportOf(const Session& session, const std::vector<ReportedTable>& tables,
                              const std::vector<std::string>& headerLines, const std::tm& now);

/// What limits an assessment held, in the session's words, the reference by its name first.
[[nodiscard]] std::vector<std::string> LimitLines(const Session& session,
                                                  std::string_view reference,
                                                  const curves::Limits& limits);

/// "Page 2 of 5"
[[nodiscard]] std::string PageNumber(const Report& report, std::size_t page, std::size_t pages);

}  // namespace zentab::app

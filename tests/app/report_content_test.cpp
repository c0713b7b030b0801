#include "app/report_content.h"

#include <gtest/gtest.h>

#include <sstream>

#include "app/report_settings.h"
#include "curves/table_curve.h"
#include "editor/grid_points.h"
#include "support/cases.h"
#include "support/environment.h"
#include "support/temporary_folder.h"
#include "tables/entry_line.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : "|") + part;
  return text;
}

std::string TextOf(const ReportPage& page) {
  std::ostringstream text;
  text << page.title << '\n';
  for (const ReportField& field : page.fields) text << field.label << '=' << field.value << ';';
  text << '\n' << Joined(page.headings) << '\n';
  for (std::size_t row = 0; row < page.rows.size(); ++row) {
    text << (page.marked[row] ? "!" : "") << Joined(page.rows[row]) << '\n';
  }
  for (const std::string& line : page.assessment) text << line << '\n';
  return text.str();
}

Session Words(const std::string& separator) {
  Session session;
  session.localeDecimalSeparator = separator;
  session.texts.instruments[1].name = "Current";
  session.texts.instruments[1].unit = "A";
  return session;
}

const std::tm kNow = [] {
  std::tm now{};
  now.tm_year = 2026 - 1900;
  now.tm_mon = 1;
  now.tm_mday = 3;
  now.tm_hour = 9;
  now.tm_min = 5;
  return now;
}();

TEST(ReportContent, PagesOfEntries) {
  for (const auto& row : test::Cases("reports.txt", "pages")) {
    ASSERT_EQ(row.size(), 5u) << row[0];
    const Session session = Words(row[0]);
    ReportedTable table = TableOfLine("Feeder", row[1], row[0]);
    table.file = "lib.dat";
    table.modes.pickup = row[2];
    if (!row[3].empty()) {
      // Held against ten times the load, within so many per cent.
      curves::Reference reference;
      reference.time = [](double load) {
        return load < 8.0 ? std::optional(load * 10.0) : std::nullopt;
      };
      curves::Limits limits;
      limits.percent = texts::WholeNumber(row[3]).value_or(0.0);
      std::vector<curves::Point> points;
      for (const editor::ChartPoint& point : editor::CurveOf(table.grid, row[0]).points) {
        points.push_back({point.load, point.time});
      }
      const auto outcome = curves::Assess(points, reference, limits);
      ASSERT_EQ(curves::FaultOf(outcome), nullptr) << row[1];
      table.assessment = {std::get<curves::Assessment>(outcome),
                          LimitLines(session, "R%1", limits)};
    }
    const Report report = ReportOf(session, {table}, {}, kNow);
    EXPECT_EQ(TextOf(report.pages.front()), row[4]) << row[1];
    EXPECT_EQ(report.heading.date, "2026-02-03 09:05");
  }
}

TEST(ReportContent, TheGridsTableSaysThatItIsEdited) {
  Session session = Words(".");
  session.table.grid.SetCell(2, editor::kLoadColumn, "1");
  session.modes = {false, false, "2.5", "0.5"};
  session.instrument = tables::Instrument::Current;
  session.tablePath = "lib.dat";
  const auto page = [&session] {
    return TextOf(ReportOf(session, {TableInGrid(session)}, {}, kNow).pages.front());
  };
  EXPECT_TRUE(page().starts_with("Unnamed table\n")) << page();
  EXPECT_NE(page().find("Pickup value=2.5 A;"), std::string::npos) << page();
  EXPECT_NE(page().find("Time multiplier=0.5;"), std::string::npos) << page();
  EXPECT_NE(page().find("\n2|1|\n"), std::string::npos) << page();
  session.source = {"other.dat", "50% %1", 0};
  session.table.tableModified = true;
  EXPECT_TRUE(page().starts_with("50% %1 (edited, not stored)\nFile=other.dat;")) << page();
}

TEST(ReportContent, LimitsInWords) {
  const Session session = Words(",");
  for (const auto& row : test::Cases("reports.txt", "limits")) {
    const auto number = [&row](std::size_t at) {
      return texts::WholeNumber(row[at]).value_or(0.0);
    };
    curves::Limits limits;
    limits.percent = number(0);
    limits.milliseconds = number(1);
    limits.assignedError = number(2);
    limits.loadPercent = number(3);
    EXPECT_EQ(Joined(LimitLines(session, "100 %", limits)), row[4]);
  }
}

using ReportSettingsFile = test::TemporaryFolder;

TEST_F(ReportSettingsFile, ComesBackAsItWas) {
  EXPECT_EQ(Joined(HeaderLines(" a \r\n\n b\nc\nd\ne\nf")), "a|b|c|d|e");
  const test::Variable folder("ZENTAB_SETTINGS_DIR", Folder().string());
  const auto store = platform::UserSettingsStore();
  const ReportSettings first = LoadReportSettings(*store, "Zentab", {{"x"}, Paper::Letter, true});
  EXPECT_TRUE(first.headerLines.empty() && first.paper == Paper::Letter && first.withAssessment);
  // Fewer lines than before leave none of those behind.
  for (const ReportSettings& kept :
       {ReportSettings{{"a", "b"}, Paper::A4, false}, ReportSettings{{"c"}, Paper::Letter, true}}) {
    EXPECT_FALSE(SaveReportSettings(*store, "Zentab", kept));
    const ReportSettings read = LoadReportSettings(*store, "Zentab", {});
    EXPECT_EQ(read.headerLines, kept.headerLines);
    EXPECT_EQ(read.paper, kept.paper);
    EXPECT_EQ(read.withAssessment, kept.withAssessment);
  }
}

}  // namespace
}  // namespace zentab::app

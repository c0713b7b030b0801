#include "app/report_content.h"

#include <array>
#include <cstdio>

#include "app/report_assessment_rows.h"
#include "editor/grid_points.h"
#include "tables/entry_line.h"
#include "texts/characters.h"

namespace zentab::app {
namespace {

constexpr const char* kNothing = "–";

std::string OrNothing(std::string text) { return text.empty() ? kNothing : std::move(text); }

std::string DateText(const std::tm& now) {
  std::array<char, sizeof "9999-12-31 23:59"> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &now);
  return {text.data(), length};
}

std::string TitleOf(const ReportedTable& table, const texts::ReportTexts& words) {
  const std::string name = table.name.empty() ? words.unnamed : table.name;
  return table.isEdited ? texts::ExpandTemplate(words.edited, {}, {name}) : name;
}

// `session` has the modes and the instrument of the table.
std::vector<ReportField> FieldsOf(const ReportedTable& table, const Session& session,
                                  const std::string& date) {
  const texts::ReportTexts& words = session.texts.report;
  const texts::InstrumentTexts instrument = InstrumentInUse(session);
  const std::string unit = instrument.unit.empty() ? std::string() : ' ' + instrument.unit;
  const std::string brackets =
      instrument.unit.empty() ? std::string() : " (" + instrument.unit + ')';
  const editor::ValueModes& modes = table.modes;
  std::vector<ReportField> fields = {
      {words.file, OrNothing(table.file)},
      {words.instrument, OrNothing(instrument.name)},
      {words.pickup, modes.pickup.empty() ? kNothing : modes.pickup + unit},
      {words.loads, modes.absoluteValues ? words.absoluteLoads + brackets : words.relativeLoads},
      {words.times, modes.milliseconds ? words.milliseconds : words.seconds}};
  if (!modes.multiplier.empty()) fields.push_back({words.multiplier, modes.multiplier});
  fields.push_back({words.date, date});
  return fields;
}

void MakeVisible(ReportPage& page) {
  const auto show = [](std::string& text) { text = texts::Visible(text); };
  show(page.title);
  for (ReportField& field : page.fields) show(field.value);
  for (std::vector<std::string>& row : page.rows) {
    for (std::string& cell : row) show(cell);
  }
  for (std::string& line : page.assessment) show(line);
}

ReportPage PageOf(const ReportedTable& table, Session& session, const std::string& date) {
  session.modes = table.modes;
  session.instrument = table.instrument;
  ReportPage page;
  page.title = TitleOf(table, session.texts.report);
  page.fields = FieldsOf(table, session, date);
  page.curve = editor::CurveOf(table.grid, session.localeDecimalSeparator);
  page.axes = AxisTitlesFor(session, session.modes.absoluteValues);
  const LabelPair labels = LabelsFor(session);
  page.headings = {session.texts.report.row, labels.load, labels.time};
  for (int row = editor::kFirstRow; row <= editor::kLastRow; ++row) {
    const std::string& load = table.grid.Cell(row, editor::kLoadColumn);
    const std::string& time = table.grid.Cell(row, editor::kTimeColumn);
    if (load.empty() && time.empty()) continue;
    page.rows.push_back({std::to_string(row), load, time});
  }
  page.marked.resize(page.rows.size());
  if (table.assessment && table.assessment->result.points.size() == page.curve.points.size()) {
    AddAssessment(*table.assessment, session, page);
  }
  MakeVisible(page);
  return page;
}

}  // namespace

ReportedTable TableOfLine(std::string_view name, std::string_view line,
                          std::string_view localeDecimalSeparator) {
  const tables::ParsedEntry entry = tables::ParseEntryLine(line);
  ReportedTable table;
  table.name = name;
  editor::ShowPoints(table.grid, entry.points, localeDecimalSeparator);
  table.modes.milliseconds = entry.milliseconds.value_or(false);
  table.modes.absoluteValues = entry.absoluteValues.value_or(false);
  table.instrument = entry.instrument.value_or(tables::Instrument::None);
  return table;
}

ReportedTable TableInGrid(const Session& session) {
  ReportedTable table;
  table.name = session.source ? session.source->name : std::string();
  table.file = session.source ? session.source->tablePath : session.tablePath;
  table.isEdited = session.table.tableModified;
  table.grid = session.table.grid;
  table.modes = session.modes;
  table.instrument = session.instrument;
  return table;
}

Report ReportOf(const Session& session, const std::vector<ReportedTable>& tables,
                const std::vector<std::string>& headerLines, const std::tm& now) {
  Report report;
  report.heading = {headerLines, DateText(now)};
  report.words = session.texts.report;
  report.decimalSeparator = session.localeDecimalSeparator;
  // Not the list of a library, which may be long.
  Session words;
  words.localeDecimalSeparator = session.localeDecimalSeparator;
  words.texts = session.texts;
  for (const ReportedTable& table : tables) {
    report.pages.push_back(PageOf(table, words, report.heading.date));
  }
  return report;
}

std::string PageNumber(const Report& report, std::size_t page, std::size_t pages) {
  const std::string number = std::to_string(page);
  const std::string count = std::to_string(pages);
  return texts::ExpandTemplate(report.words.pageOf, {}, {number, count});
}

}  // namespace zentab::app

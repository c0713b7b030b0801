#include "app/time_test_commands.h"

#include <optional>

#include "platform/paths.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kTraceFile = "Zentab_ImportTable.txt";

void Take(std::int16_t& setting, std::string_view field) {
  setting = texts::ShortInteger(field).value_or(setting);
}

}  // namespace

bool HasTimeTest(platform::FileLayer& files, const std::filesystem::path& installFolder,
                 tables::Instrument instrument) {
  timetest::ResultSource source;
  return !timetest::FindResultSource(files, installFolder, instrument, source) &&
         timetest::HasEntries(files, source);
}

bool TimeTestCommands::HasTimeTest() const {
  return app::HasTimeTest(files_, platform::ToPath(session_.installFolder), session_.instrument);
}

timetest::ImportResult TimeTestCommands::ImportTimeTest(const ImportFields& fields,
                                                        const timetest::ProgressReport& progress) {
  TakeFields(fields);
  const std::filesystem::path folder = platform::ToPath(session_.installFolder);
  std::optional<timetest::ImportTrace> trace;
  if (session_.texts.import.printTable) trace.emplace(files_, folder / kTraceFile);
  timetest::ResultSource source;
  timetest::ImportResult result;
  result.readError = timetest::FindResultSource(files_, folder, session_.instrument, source);
  if (result.readError) {
    result.outcome = timetest::ImportOutcome::Unreadable;
    return result;
  }
  result = timetest::ImportCurve(files_, source, Options(), session_.texts,
                                 trace ? &*trace : nullptr, progress);
  session_.texts.import.differenceType = result.differenceType;
  if (result.outcome == timetest::ImportOutcome::Imported) ShowInGrid(result.points);
  return result;
}

void TimeTestCommands::TakeFields(const ImportFields& fields) {
  texts::ImportSettings& settings = session_.texts.import;
  Take(settings.differenceType, fields.differenceType);
  Take(settings.filterType, fields.filterType);
  Take(settings.meanOver, fields.meanOver);
}

timetest::ImportOptions TimeTestCommands::Options() const {
  const texts::ImportSettings& settings = session_.texts.import;
  const editor::ValueModes& modes = session_.modes;
  const double pickup =
      texts::LeadingNumber(texts::SetDecimalSeparator(modes.pickup, ".")).value_or(0.0);
  return {{modes.absoluteValues, modes.milliseconds, pickup},
          settings.differenceType,
          settings.filterType,
          settings.meanOver,
          settings.timeout};
}

void TimeTestCommands::ShowInGrid(const std::vector<timetest::MeasuredPoint>& points) {
  editor::CurveGrid& grid = session_.table.grid;
  const std::string& separator = session_.localeDecimalSeparator;
  grid.ClearPoints();
  session_.table.tableModified = false;
  int row = editor::kFirstRow;
  for (const timetest::MeasuredPoint& point : points) {
    grid.SetCell(row, editor::kLoadColumn, texts::NumberText(point.load, separator));
    grid.SetCell(row, editor::kTimeColumn, texts::NumberText(point.time, separator));
    ++row;
  }
}

}  // namespace zentab::app

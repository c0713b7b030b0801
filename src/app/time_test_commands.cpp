#include "app/time_test_commands.h"

#include "editor/grid_points.h"
#include "platform/paths.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kTraceFile = "Zentab_ImportTable.txt";

std::int16_t Taken(const std::string& field, const std::string& separator, std::int16_t setting) {
  return texts::ShortInteger(texts::FileNumber(field, separator)).value_or(setting);
}

}  // namespace

bool HasTimeTest(platform::FileLayer& files, const std::filesystem::path& installFolder,
                 tables::Instrument instrument) {
  timetest::ResultSource source;
  return !timetest::FindResultSource(files, installFolder, instrument, source) &&
         timetest::HasEntries(files, source);
}

timetest::ImportOptions ImportOptionsWith(const Session& session, const ImportFields& fields) {
  const texts::ImportSettings& settings = session.texts.import;
  const editor::ValueModes& modes = session.modes;
  const std::string& separator = session.localeDecimalSeparator;
  const double pickup = editor::CellNumber(modes.pickup, separator).value_or(0.0);
  return {{modes.absoluteValues, modes.milliseconds, pickup},
          Taken(fields.differenceType, separator, settings.differenceType),
          Taken(fields.filterType, separator, settings.filterType),
          Taken(fields.meanOver, separator, settings.meanOver),
          settings.timeout};
}

bool TimeTestCommands::HasTimeTest() const {
  return app::HasTimeTest(files_, platform::ToPath(session_.installFolder), session_.instrument);
}

ImportTimeTestOutcome TimeTestCommands::ImportTimeTest(const ImportFields& fields,
                                                       const timetest::ProgressReport& progress) {
  const timetest::ImportOptions options = ImportOptionsWith(session_, fields);
  texts::ImportSettings& settings = session_.texts.import;
  settings.differenceType = options.differenceType;
  settings.filterType = options.filterType;
  settings.meanOver = options.meanOver;
  const std::filesystem::path folder = platform::ToPath(session_.installFolder);
  timetest::ResultSource source;
  ImportTimeTestOutcome outcome;
  timetest::ImportResult& result = outcome.result;
  result.readError = timetest::FindResultSource(files_, folder, session_.instrument, source);
  if (result.readError) {
    result.outcome = timetest::ImportOutcome::Unreadable;
    return outcome;
  }
  timetest::ImportTrace trace;
  result = timetest::ImportCurve(files_, source, options, session_.texts,
                                 settings.printTable ? &trace : nullptr, progress);
  settings.differenceType = result.differenceType;
  if (result.outcome == timetest::ImportOutcome::Imported) ShowInGrid(result.points);
  outcome.traceError = trace.Save(files_, folder / kTraceFile);
  return outcome;
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

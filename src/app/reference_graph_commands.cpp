#include "app/reference_graph_commands.h"

#include <cmath>
#include <limits>

#include "app/session_texts.h"
#include "editor/grid_points.h"
#include "platform/locale_queries.h"
#include "platform/paths.h"
#include "testset/imported_graph.h"
#include "testset/reference_graph.h"
#include "testset/reference_graph_writer.h"
#include "texts/template_text.h"

namespace zentab::app {

testset::GraphDate Today() {
  const std::tm today = LocalTime();
  return {platform::MonthAbbreviation(today.tm_mon + 1), today.tm_mday, 1900 + today.tm_year};
}

const std::string& FaultText(testset::GraphFault fault, const texts::GraphTexts& texts) {
  switch (fault) {
    case testset::GraphFault::EndsEarly:
      return texts.endsEarly;
    case testset::GraphFault::NoCount:
      return texts.noCount;
    case testset::GraphFault::NoSegment:
      return texts.noSegment;
    case testset::GraphFault::NotExpected:
    case testset::GraphFault::Unreadable:
      break;
  }
  return texts.notExpected;
}

SetGraphOutcome ReferenceGraphCommands::WriteGraph(std::string_view tableName) {
  const auto segments =
      testset::SegmentsOf(session_.table.grid, ModesInFiles(session_), InstrumentInUse(session_),
                          session_.localeDecimalSeparator);
  if (!segments) return {false, {}};
  const std::filesystem::path folder = platform::ToPath(session_.installFolder);
  // The module must not take up the former graph in the place of one that was not written.
  if (const auto error = testset::WriteReferenceGraph(files_, folder, *segments, Today())) {
    return {true, error};
  }
  const double pickup =
      editor::CellNumber(session_.modes.pickup, session_.localeDecimalSeparator).value_or(0.0);
  if (std::abs(pickup) <= std::numeric_limits<float>::max()) {
    instruments_.SetPickup(static_cast<float>(pickup));
  }
  LogWriting(segments->size(), tableName);
  return {};
}

void ReferenceGraphCommands::HandOverGraph() {
  instruments_.SetReferenceGraph(testset::kGraphFile);
}

void ReferenceGraphCommands::LogWriting(std::size_t segments, std::string_view tableName) const {
  const std::string mode = session_.modes.absoluteValues ? " using " + session_.modes.pickup
                                                         : std::string(" absolute values");
  log_.WriteLogLine(" %E I Writing " + std::to_string(segments) + " lines from " +
                    texts::AsTemplate(std::string(tableName) + mode));
}

bool ReferenceGraphCommands::CanImport() const {
  return testset::CanImport(ModesInFiles(session_));
}

ImportGraphOutcome ReferenceGraphCommands::ImportGraph(const std::filesystem::path& file) {
  const testset::ReadGraph graph = testset::ReadReferenceGraph(files_, file);
  if (graph.error) return {graph.error, 0};
  const testset::ImportedGraph imported =
      testset::ImportGraph(graph.segments, ModesInFiles(session_), InstrumentInUse(session_));
  log_.WriteLogLine(" %E Imported ");
  for (const testset::GraphPoint& point : imported.skipped) {
    log_.WriteLogLine(" %E Imported Skipping point=" + testset::CoordinateText(point.load) + ' ' +
                      testset::CoordinateText(point.time));
  }
  editor::ShowPoints(session_.table.grid, imported.points, session_.localeDecimalSeparator);
  session_.table.tableModified = true;
  return {std::nullopt, imported.skipped.size()};
}

}  // namespace zentab::app

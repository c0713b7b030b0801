#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "app/event_log.h"
#include "app/session.h"
#include "platform/file_layer.h"
#include "testset/instrument_session.h"
#include "testset/reference_graph_reader.h"
#include "testset/reference_graph_writer.h"
#include "texts/catalogue_texts.h"

namespace zentab::app {

/// The day that a reference graph written now bears.
[[nodiscard]] testset::GraphDate Today();

/// What a line at fault fails to be, in the words of `texts`. A file that cannot be read has no
/// such line.
[[nodiscard]] const std::string& FaultText(testset::GraphFault fault,
                                           const texts::GraphTexts& texts);

/// What came of writing the grid's curve as the reference graph.
struct SetGraphOutcome {
  bool hasPoints = true;  // false: row 1 has an empty cell, nothing was done
  std::error_code error;  // the file could not be written, there is nothing to hand over
};

/// What came of reading a reference graph. After an error the grid is as it was.
struct ImportGraphOutcome {
  std::optional<testset::GraphError> error;
  std::size_t skipped = 0;  // points that the log tells of
};

/// Set GRH and Import GRH: the grid's curve to the time test's module and back from a file.
class ReferenceGraphCommands {
 public:
  ReferenceGraphCommands(Session& session, platform::FileLayer& files, EventLog& log,
                         testset::InstrumentSession& instruments)
      : session_(session), files_(files), log_(log), instruments_(instruments) {}

  /// The first half of Set GRH: writes the grid's curve as the reference graph. `tableName` is the
  /// selected entry's, for the log.
  [[nodiscard]] SetGraphOutcome WriteGraph(std::string_view tableName);
  /// The second one, once it has been written: hands it to the chosen instrument's module, which
  /// may take its time and run a loop of its own.
  void HandOverGraph();

  /// Whether the value modes allow reading a reference graph.
  [[nodiscard]] bool CanImport() const;
  /// Reads a GRH file into the grid.
  [[nodiscard]] ImportGraphOutcome ImportGraph(const std::filesystem::path& file);

 private:
  void LogWriting(std::size_t segments, std::string_view tableName) const;

  Session& session_;
  platform::FileLayer& files_;
  EventLog& log_;
  testset::InstrumentSession& instruments_;
};

}  // namespace zentab::app

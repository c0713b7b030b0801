#pragma once

#include <string>
#include <system_error>

#include "app/session.h"
#include "platform/file_layer.h"
#include "timetest/import_pipeline.h"

namespace zentab::app {

/// The texts of the fields that an import starts with.
struct ImportFields {
  std::string differenceType;  // `Text4`
  std::string filterType;      // `Text5`
  std::string meanOver;        // `Text6`
};

struct ImportTimeTestOutcome {
  timetest::ImportResult result;
  std::error_code traceError;  // why the trace that the catalogue asks for was not written
};

/// Whether an instrument's result file has an entry; not while it cannot be read.
[[nodiscard]] bool HasTimeTest(platform::FileLayer& files,
                               const std::filesystem::path& installFolder,
                               tables::Instrument instrument);

/// What an import works by that starts with such fields: one that is no 16-bit integer leaves the
/// session's setting.
[[nodiscard]] timetest::ImportOptions ImportOptionsWith(const Session& session,
                                                        const ImportFields& fields);

/// The command on the time test of the chosen instrument. It asks nothing.
class TimeTestCommands {
 public:
  TimeTestCommands(Session& session, platform::FileLayer& files)
      : session_(session), files_(files) {}

  /// Whether the chosen instrument's result file has an entry.
  [[nodiscard]] bool HasTimeTest() const;

  /// Brings the last time test into the grid. A field that is no 16-bit integer leaves the setting
  /// as it was. Unless the result says that it was imported, grid and modified mark stay.
  ImportTimeTestOutcome ImportTimeTest(const ImportFields& fields,
                                       const timetest::ProgressReport& progress);

 private:
  void ShowInGrid(const std::vector<timetest::MeasuredPoint>& points);

  Session& session_;
  platform::FileLayer& files_;
};

}  // namespace zentab::app

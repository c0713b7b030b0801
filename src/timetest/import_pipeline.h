#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "texts/catalogue_texts.h"
#include "timetest/import_trace.h"
#include "timetest/measured_points.h"
#include "timetest/point_reader.h"

namespace zentab::timetest {

/// What an import works by.
struct ImportOptions {
  ReadingModes modes;
  std::int16_t differenceType = 0;  // the equation's number; built in where there is none
  std::int16_t filterType = 0;      // 0: no filter; 7 and above: timeouts stay
  std::int16_t meanOver = 0;        // the width of the mean, and the value equation's number
  std::string timeout;              // the timeout level's text
};

enum class ImportOutcome { Imported, NoEntries, Unreadable, EquationError, Stopped };

struct ImportResult {
  ImportOutcome outcome = ImportOutcome::Imported;
  std::vector<MeasuredPoint> points;  // at most 26, only when imported
  std::string error;                  // which equation is none, for a message
  std::error_code readError;          // why the result file could not be read
  std::int16_t differenceType = 0;    // 0 where the built-in measure was used
  bool selectedByRank = false;        // the measures told too few of the points apart
};

/// Turns the points of a time test into those of a curve: reads them, removes those that did not
/// trip, measures how the curve bends, filters, averages or transforms the times, and selects at
/// most 26 points. `trace` (null: none) gets the stages; `progress` may be empty.
[[nodiscard]] ImportResult ImportCurve(platform::FileLayer& files, const ResultSource& source,
                                       const ImportOptions& options,
                                       const texts::CatalogueTexts& texts, ImportTrace* trace,
                                       const ProgressReport& progress);

}  // namespace zentab::timetest

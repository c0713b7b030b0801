#pragma once

#include <array>
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

/// What the stages of an import did to the points.
struct ImportEffects {
  double timeoutLevel = 0.0;  // in the unit of the times
  StageEffect timeouts;
  StageEffect filter;
  std::size_t averaged = 0;           // points whose time the mean or the value equation changed
  std::vector<MeasuredPoint> shaped;  // what the points of the curve are selected from
  std::array<std::size_t, texts::kEquationStages> failures{};  // of a stage's equation
};

/// Turns the points of a time test into those of a curve: reads them, removes those that did not
/// trip, measures how the curve bends, filters, averages or transforms the times, and selects at
/// most 26 points. `trace` (null: none) gets the stages; `progress` may be empty.
[[nodiscard]] ImportResult ImportCurve(platform::FileLayer& files, const ResultSource& source,
                                       const ImportOptions& options,
                                       const texts::CatalogueTexts& texts, ImportTrace* trace,
                                       const ProgressReport& progress);

/// The same of points that are read already, which are not none; `effects` (null: none) get what
/// each stage did.
[[nodiscard]] ImportResult ImportPoints(const ReadPoints& read, const ImportOptions& options,
                                        const texts::EquationTexts& equations,
                                        const ProgressReport& progress, ImportEffects* effects);

}  // namespace zentab::timetest

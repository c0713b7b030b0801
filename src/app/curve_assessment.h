#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "app/form_values.h"
#include "app/session.h"
#include "app/standard_curve.h"
#include "curves/assessment.h"
#include "curves/entry_points.h"

namespace zentab::app {

/// What the grid is assessed against.
struct ChosenReference {
  std::string name;                                     // to be shown
  std::variant<curves::EntryPoints, FormValues> curve;  // an entry, or a form's standard curve
};

/// The band around a reference at one load; s.
struct BandPoint {
  double load;
  double nominal;
  double lower;
  double upper;
};

/// A point as the user sees it, numbers in his notation; empty where there is none.
struct AssessedRow {
  static constexpr std::size_t kNumbers = 7;

  int row;  // of the grid
  // load, multiple, measured and nominal time in the grid's units, deviation in ms and per cent,
  // limit in ms
  std::array<std::string, kNumbers> numbers;
  curves::Verdict verdict;
};

struct GridAssessment {
  curves::Assessment assessment;
  curves::Limits limits;
  std::vector<AssessedRow> rows;
  std::vector<BandPoint> band;  // over the grid's loads, times in the grid's unit
  std::string verdict;          // in one line
};

/// The names of the fields of the form for limits, with what they hold at first.
[[nodiscard]] FormValues FirstLimits(const Session& session);

/// The limits that a form gives.
[[nodiscard]] std::variant<curves::Limits, FormFault> LimitsIn(const FormValues& values,
                                                               const Session& session);

/// Whether the grid's table is within the limits of a reference.
[[nodiscard]] std::variant<GridAssessment, FormFault> AssessGrid(const Session& session,
                                                                 const ChosenReference& reference,
                                                                 const FormValues& limits);

/// All of it as text, fields between tabs, the headings above and the verdict below.
[[nodiscard]] std::string TextOf(const GridAssessment& assessment, const ChosenReference& reference,
                                 const Session& session);

/// The headings of the columns, the verdict's last.
[[nodiscard]] std::array<std::string, AssessedRow::kNumbers + 1> AssessmentHeadings(
    const Session& session);

}  // namespace zentab::app

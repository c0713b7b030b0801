#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/session.h"
#include "editor/chart_curve.h"
#include "interchange/curve_file.h"
#include "interchange/text_preview.h"

namespace zentab::app {

/// A text with curves of another program.
struct CurveSource {
  std::string name;  // of the file, without its folder
  std::string bytes;
};

/// A curve of such a text, as a table would have it.
struct FoundCurve {
  std::string name;                  // proposed for an entry; no two have the same
  std::size_t pointCount = 0;        // that the text has
  interchange::ImportedCurve curve;  // without its points
  curves::Outcome<curves::ChosenPoints> table;

  /// The table as an entry, null where there can be none.
  [[nodiscard]] std::optional<tables::CurveTableEntry> Entry() const;
};

/// What a text was read as.
struct CurveReading {
  std::optional<interchange::Fault> fault;  // then no curves were found
  interchange::ImportedText text;           // without its curves
  std::vector<interchange::ShownRow> rows;  // the first ones; none of what is no text
  std::vector<FoundCurve> found;
};

[[nodiscard]] CurveReading ReadCurveText(const CurveSource& source,
                                         const interchange::ImportChoices& choices,
                                         interchange::Surplus surplus);

/// The library of these entries, each under its name there.
struct NamedCurve {
  std::string name;
  const FoundCurve* curve;
};
[[nodiscard]] interchange::JsonLibrary LibraryOf(const std::vector<NamedCurve>& curves);

/// Makes an entry the session's table, in its own units, which counts as modified.
void PutIntoGrid(const tables::CurveTableEntry& entry, Session& session);

/// An entry's curve as the chart would show it. Where nothing converts its loads into those of
/// the chart they are as they are.
struct ShownEntry {
  editor::ChartCurve curve;
  bool areConverted = true;
};
[[nodiscard]] ShownEntry EntryInChart(const tables::CurveTableEntry& entry, const Session& session);

}  // namespace zentab::app

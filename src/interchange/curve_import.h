#pragma once

#include <optional>
#include <string>
#include <vector>

#include "curves/thinning.h"
#include "interchange/column_heading.h"
#include "interchange/fault.h"
#include "interchange/library_json.h"
#include "interchange/text_encoding.h"
#include "tables/curve_table_entry.h"

namespace zentab::interchange {

/// The most rows that a text may have; what measures a relay has no more points.
inline constexpr std::size_t kMostRows = 2'000'000;

/// How a text of rows is to be read; what is not given is guessed.
struct ImportChoices {
  std::optional<Encoding> encoding;
  std::optional<char> separator;    // kBlanks: blanks and tabs
  std::optional<char> decimalSign;  // "." or ","
  std::optional<bool> hasHeader;    // whether the first row of each block is a heading
  std::string load;                 // a column's number from 1, or its heading; empty: guessed
  std::string time;
  std::optional<LoadUnit> loadUnit;
  std::optional<TimeUnit> timeUnit;
};

/// A curve of a text, in the units of a table: kA became A, cycles s.
struct ImportedCurve {
  std::string name;                        // from its heading; may be empty
  std::vector<curves::Point> points;       // in their order, any number
  LoadUnit loadUnit = LoadUnit::Multiple;  // as the text has it
  TimeUnit timeUnit = TimeUnit::Second;
  std::optional<JsonEntry> stored;  // the entry of a library that it is

  [[nodiscard]] bool Milliseconds() const { return timeUnit == TimeUnit::Millisecond; }
  [[nodiscard]] bool AbsoluteValues() const { return loadUnit != LoadUnit::Multiple; }
  [[nodiscard]] tables::Instrument Instrument() const;
};

/// What a text was taken for, and the curves that it has then: one for each block of rows and each
/// column of times in it.
struct ImportedText {
  bool isJson = false;  // then there is nothing to be taken for anything
  Encoding encoding = Encoding::Utf8;
  char separator = ',';
  char decimalSign = '.';
  bool hasHeader = false;             // of the block that the first curve is of, and so on
  std::vector<std::string> headings;  // of all its columns, some of them empty
  std::size_t load = 0;               // the first curve's columns, from 0
  std::size_t time = 0;
  std::vector<ImportedCurve> curves;  // at least one
};

/// Reads curves from the bytes of a text file. Blank rows, and rows without a number, part blocks;
/// a block without a heading has that of the one before. NoText, TooManyLines, OneColumn,
/// NoNumbers, BadNumber, MissingNumber, NoColumn.
[[nodiscard]] Outcome<ImportedText> ImportCurves(std::string bytes, const ImportChoices& choices);

/// What becomes of points beyond those that a table has.
enum class Surplus { Thin, Cut };

/// A curve as a table has it. Up to tables::kMaxPoints stay as they are; of more those are chosen
/// that the curve is thinned to, or the first ones. The deviation is that of thinning, else 0.
/// Faults of thinning, as curves::TableCurve::Of has them.
[[nodiscard]] curves::Outcome<curves::ChosenPoints> PointsForTable(const ImportedCurve& curve,
                                                                   Surplus surplus);

/// The curve as an entry, with "." in its numbers; that of a library as it is there.
[[nodiscard]] tables::CurveTableEntry EntryOf(const ImportedCurve& curve,
                                              const std::vector<curves::Point>& points);

}  // namespace zentab::interchange

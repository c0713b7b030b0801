#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/curve_grid.h"
#include "tables/curve_table_entry.h"
#include "texts/catalogue_texts.h"

namespace zentab::editor {

/// What may be wrong with a cell. None of it keeps anybody from storing the table.
enum class PointFault {
  NoNumber,
  Missing,        // the other half of the row has a text
  NotIncreasing,  // a load that is not above the one before it
  Doubled,        // a load that an earlier point has
  NotPositive,    // a time
  Gap,            // an empty row above others: commands that store a table end there
};

struct CellFault {
  int row;     // 1..26 in a grid; in a list of points the place from 1, which may be beyond
  int column;  // 1 or 2
  PointFault fault;
  int other = 0;  // for Doubled, the row with the same load

  friend bool operator==(const CellFault&, const CellFault&) = default;
};

/// The faults of a grid, row by row. A cell has one or, in case of a doubled load, two of them; the
/// empty rows at the end have none. Takes some microseconds.
[[nodiscard]] std::vector<CellFault> FaultsOf(const CurveGrid& grid,
                                              std::string_view localeDecimalSeparator);

/// The same for the points of a table file, with "." as decimal separator, each of which is meant
/// to have two numbers.
[[nodiscard]] std::vector<CellFault> FaultsOf(const std::vector<tables::CurvePoint>& points);

/// What is wrong, in words; `cell` is the text at fault.
[[nodiscard]] std::string FaultText(const texts::PointTexts& texts, const CellFault& fault,
                                    std::string_view cell);

}  // namespace zentab::editor

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "interchange/column_heading.h"

namespace zentab::interchange {

/// A block of rows as its columns look: one element for each.
struct BlockColumn {
  std::string heading;
  bool hasNumbers = false;
  bool increases = false;  // its first numbers, each above the one before
};

/// Which two columns make a curve.
struct CurveColumns {
  std::size_t load = 0;
  std::size_t time = 0;
  ColumnHeading loadHeading;
  ColumnHeading timeHeading;
};

/// The number, from 0, of the column that `wanted` (its number from 1 or, where there is no such
/// column, its heading with or without unit, letters compared without case) means; the count of
/// columns when there is none.
[[nodiscard]] std::size_t ColumnOf(const std::vector<BlockColumn>& columns,
                                   const std::string& wanted);

/// The curves of a block: one for each column of times. `load` and `time` are the numbers of
/// columns that are known, kUnknownColumn where they are to be guessed by headings, numbers and
/// order. None where no two columns can make one.
inline constexpr std::size_t kUnknownColumn = static_cast<std::size_t>(-1);
[[nodiscard]] std::vector<CurveColumns> PlanColumns(const std::vector<BlockColumn>& columns,
                                                    std::size_t load, std::size_t time);

}  // namespace zentab::interchange

#pragma once

#include <string_view>

#include "editor/curve_grid.h"

namespace zentab::editor {

/// Cleans the cells after a paste or a clear. A cell that is a number as a whole is rounded to 3
/// decimals, halves to even, and written in the user's form. Then characters below "!" or above
/// "9", other than the locale's decimal separator, are removed in one walk that does not look again
/// at a place where it removed one: of two neighbours to be removed the second stays.
void TidyGrid(CurveGrid& grid, std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

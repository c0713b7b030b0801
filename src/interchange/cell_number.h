#pragma once

#include <optional>
#include <string_view>

namespace zentab::interchange {

/// The finite number that a cell is as a whole, "." or "," as its decimal sign. The other sign may
/// group its digits by threes, where that cannot be meant otherwise: 1.234,5 and 1.234.567 are
/// numbers with ",", 1.234 is none. So may no-break blanks.
[[nodiscard]] std::optional<double> CellNumber(std::string_view cell, char decimalSign);

/// The same with either sign.
[[nodiscard]] bool IsCellNumber(std::string_view cell);

}  // namespace zentab::interchange

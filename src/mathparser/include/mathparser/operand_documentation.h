#pragma once

#include <span>
#include <string_view>

namespace zentab::mathparser {

/// What a user is told of a name that stands for a number: English, UTF-8, in one line. All rows
/// and their texts live as long as the program; any thread may read them.
struct OperandDocumentation {
  std::string_view name;     ///< as it is written
  std::string_view meaning;  ///< what it stands for
};

/// The constants, with the "#" that belongs to their names.
[[nodiscard]] std::span<const OperandDocumentation> DocumentedConstants();

/// The units that may follow a number. The first one of two spellings stands for both.
[[nodiscard]] std::span<const OperandDocumentation> DocumentedUnits();
/// The prefixes that may stand before a unit.
[[nodiscard]] std::span<const OperandDocumentation> DocumentedPrefixes();

}  // namespace zentab::mathparser

#pragma once

#include <span>
#include <string_view>

namespace zentab::mathparser {

/// What a user is told of a function keyword. All texts are English, UTF-8, in one line.
struct FunctionDocumentation {
  std::string_view keyword;    ///< in lower case; case does not count
  std::string_view arguments;  ///< their names with ", " between them
  std::string_view meaning;    ///< what it computes
  std::string_view domain;     ///< where it has a value: "all" for everywhere
  std::string_view example;    ///< EXPRESSION = VALUE, angles in radians, the value to 15 digits
};

/// One row for each keyword of the standard catalogue, in its order. docs/expressions.md has the
/// same rows. Both they and their texts live as long as the program; any thread may read them.
[[nodiscard]] std::span<const FunctionDocumentation> DocumentedFunctions();

}  // namespace zentab::mathparser

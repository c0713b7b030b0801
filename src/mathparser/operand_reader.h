#pragma once

#include <string>
#include <string_view>

namespace zentab::mathparser {

/// What an operand's token turned out to be.
struct ReadOperand {
  enum class Kind { Literal, Variable, Failure };
  Kind kind = Kind::Failure;
  double value = 0.0;
  std::string message;  // of a failure
};

/// Reads a token that stands where an operand is needed: a constant (pi#), a number with or
/// without a unit (5mA), an angle in degrees, minutes and seconds (30d15m), a variable's name.
/// The token is UTF-8 without blanks and without its sign. A number beyond the range of a double
/// is no operand; one too small for it is 0. The process locale has no say.
[[nodiscard]] ReadOperand ReadOperandToken(std::string_view token);

/// Whether the text is a name: a letter or "_", then letters, "_" and digits.
[[nodiscard]] bool IsName(std::string_view text);

}  // namespace zentab::mathparser

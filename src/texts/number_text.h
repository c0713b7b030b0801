#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zentab::texts {

/// Of a ratio of 1.
inline constexpr double kPercent = 100.0;

/// The text without the blanks (character 32) on both sides; tabs and others stay.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

/// The text with its first ",", or where it has none its first ".", replaced by `separator`.
/// Only that one is touched: 1,234.5 becomes 1.234.5.
[[nodiscard]] std::string SetDecimalSeparator(std::string_view number, std::string_view separator);

/// The number text of a cell as files have it, with ".": its first `localeSeparator`, the decimal
/// separator of the user's locale, becomes one where the text has any; else as SetDecimalSeparator
/// does, as "," and "." are understood in every locale.
[[nodiscard]] std::string FileNumber(std::string_view cell, std::string_view localeSeparator);

/// The value of the longest leading part of a text that is a decimal number: blanks, a sign,
/// digits with at most one ".", an exponent (1E-05). The process locale has no say. Nothing when
/// the text begins with no number or the number lies beyond the range of a double; a number too
/// small for one is 0. Does not throw or allocate.
[[nodiscard]] std::optional<double> LeadingNumber(std::string_view text);

/// As LeadingNumber, but only when the text is a number as a whole, blanks on both sides aside.
[[nodiscard]] std::optional<double> WholeNumber(std::string_view text);

/// The 16-bit integer that a whole text is, written with either decimal separator; a fraction is
/// rounded to the nearest integer, halves to the even one. Nothing for any other text.
[[nodiscard]] std::optional<std::int16_t> ShortInteger(std::string_view text);

/// A finite number with exactly `decimals` (from 1) digits behind a ".", at least one before it, no
/// exponent and no "-" before a zero; any other number as NumberText gives it. Its 15 significant
/// decimal digits count, as the user sees them; halves are rounded away from zero.
[[nodiscard]] std::string FixedText(double number, int decimals);

/// A finite number as the grid shows it: at most 15 significant digits, no trailing zeros, the
/// given decimal separator; 1E-05 or 1.5E+20 below 0.0001 and from 1E+15 up.
[[nodiscard]] std::string NumberText(double number, std::string_view decimalSeparator);

/// The number with the fewest significant digits, as NumberText writes it, that lies within
/// `tolerance` (from 0) of a finite one; with none so near, the 17 digits that tell it from every
/// other. So what arithmetic made of decimal numbers shows none of its noise: 1.1 * 1.1 with a
/// tolerance of 1E-15 gives 1.21.
[[nodiscard]] std::string ShortText(double number, double tolerance,
                                    std::string_view decimalSeparator);

/// A 32-bit number with the 7 significant digits that it has, so that 0.1f gives 0.1.
[[nodiscard]] double ShownValue(float number);

/// The number rounded to `decimals` (0 to 15) digits behind the point, halves to the even digit.
/// Halves are told by the number's 15 significant decimal digits, as the user sees them, not by
/// its last binary digits: 1.2345 gives 1.234 and 1.0015 gives 1.002.
[[nodiscard]] double RoundHalfEven(double number, int decimals);

}  // namespace zentab::texts

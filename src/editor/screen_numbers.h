#pragma once

#include <string>
#include <string_view>

namespace zentab::editor {

/// The finite number with no more digits than a screen tells apart on which neighbouring pixels
/// differ by `step`: a multiple of the power of ten next below. A step of 0 tells all apart.
[[nodiscard]] double RoundedTo(double number, double step);

/// The same as a text, with zeros up to the last of these digits; with a step of 0 as many digits
/// as a reader takes in.
[[nodiscard]] std::string RoundedText(double number, double step,
                                      std::string_view decimalSeparator);

}  // namespace zentab::editor

#pragma once

#include <string>
#include <string_view>

namespace zentab::editor {

/// How the grid's numbers are meant. Changing a mode never rewrites the grid. Number texts have "."
/// or "," as decimal separator wherever they are taken for numbers here.
struct ValueModes {
  bool absoluteValues = false;  // loads in amperes or volts, not multiples of the pickup value
  bool milliseconds = false;    // times in ms, not s
  std::string pickup;           // the pickup value's text, amperes or volts
  std::string multiplier;       // the time multiplier's text; empty: times stay as they are

  /// The time column's unit as it stands in captions.
  [[nodiscard]] std::string_view TimeUnitText() const { return milliseconds ? "mS" : "S"; }
};

/// Numbers in the units of a reference graph.
struct ScaledPoint {
  double load;  // amperes or volts
  double time;  // seconds, with the time multiplier

  friend bool operator==(const ScaledPoint&, const ScaledPoint&) = default;
};

/// A pair of number texts of the grid in the units of a reference graph. A text that is no number
/// counts as 0, the pickup value and the multiplier as well; a product beyond the range of a
/// double leaves the number as it was.
[[nodiscard]] ScaledPoint Scaled(const ValueModes& modes, std::string_view load,
                                 std::string_view time);

/// What the multiplier field holds after each change: the text itself while it is a number as a
/// whole, else nothing. So a sign or a decimal separator typed first is refused.
[[nodiscard]] std::string_view MultiplierWhileTyping(std::string_view text,
                                                     std::string_view localeDecimalSeparator);

/// What the multiplier field holds once it is left: a multiplier of 0 is none.
[[nodiscard]] std::string_view MultiplierWhenLeft(std::string_view text,
                                                  std::string_view localeDecimalSeparator);

}  // namespace zentab::editor

#pragma once

#include <string>
#include <string_view>

namespace zentab::editor {

/// How the grid's numbers are meant. Changing a mode never rewrites the grid.
struct ValueModes {
  bool absoluteValues = false;  // loads in amperes or volts, not multiples of the pickup value
  bool milliseconds = false;    // times in ms, not s
  std::string pickup;           // the pickup value's text, amperes or volts

  /// The time column's unit as it stands in captions.
  [[nodiscard]] std::string_view TimeUnitText() const { return milliseconds ? "mS" : "S"; }
};

}  // namespace zentab::editor

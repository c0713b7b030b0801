#pragma once

#include <string>

#include "app/session.h"

namespace zentab::app {

struct AxisTitles {
  std::string load;
  std::string time;
};

/// The chart's axis titles with the units that the value modes and the instrument give.
[[nodiscard]] AxisTitles AxisTitlesFor(const Session& session);

}  // namespace zentab::app

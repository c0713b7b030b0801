#pragma once

#include <string>
#include <string_view>

#include "app/session.h"

namespace zentab::app {

/// What an entry holds, in some short lines: its name, the instrument, the number of its points and
/// their range, numbers as the grid shows them. `line` is its line as UTF-8.
[[nodiscard]] std::string SummaryOf(const Session& session, std::string_view name,
                                    std::string_view line);

}  // namespace zentab::app

#pragma once

#include <string>

namespace zentab::cli {

/// The shortest text that reads back as the same double; "." as decimal point.
[[nodiscard]] std::string ShortestText(double number);

}  // namespace zentab::cli

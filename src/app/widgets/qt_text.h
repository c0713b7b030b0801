#pragma once

#include <QString>
#include <string_view>

namespace zentab::app {

/// A text of the program, in UTF-8, as Qt has it.
[[nodiscard]] inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace zentab::app

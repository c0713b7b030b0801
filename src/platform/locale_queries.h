#pragma once

#include <optional>
#include <string>

namespace zentab::platform {

/// The decimal separator of the user's locale as the system gives it (UTF-8), or nothing when the
/// locale cannot be read.
[[nodiscard]] std::optional<std::string> UserDecimalSeparator();

}  // namespace zentab::platform

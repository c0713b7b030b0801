#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zentab::platform {

/// The decimal separator of the user's locale as the system gives it (UTF-8), or nothing when the
/// locale cannot be read.
[[nodiscard]] std::optional<std::string> UserDecimalSeparator();

/// The short name of a month (1 to 12) in the user's locale, as UTF-8: "Nov".
[[nodiscard]] std::string MonthAbbreviation(int month);

/// The system's default locale as a Windows locale identifier. Elsewhere it follows the locale
/// that the environment names; 0x0409 (English, United States) for one that is not in the table.
[[nodiscard]] std::uint32_t SystemLocaleIdentifier();

/// The Windows character set of the user's locale, by the code page of its language; nothing when
/// the system does not know it.
[[nodiscard]] std::optional<int> UserCharacterSet();

}  // namespace zentab::platform

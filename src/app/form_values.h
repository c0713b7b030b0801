#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/settings_store.h"

namespace zentab::app {

/// What the fields of a dialog hold, by the names of the fields: numbers with the user's decimal
/// separator, choices by their identifiers, switches as "1" and "0".
using FormValues = std::map<std::string, std::string, std::less<>>;

/// The value of a field; empty where there is none.
[[nodiscard]] const std::string& ValueOf(const FormValues& values, std::string_view field);

/// A field's whole text as a number; nothing for any other text, an empty one included.
[[nodiscard]] std::optional<double> NumberIn(const FormValues& values, std::string_view field,
                                             std::string_view localeDecimalSeparator);

/// A field's numbers, between ";" or blanks, and "," as well where that is not the user's decimal
/// separator. Nothing where one of them is none or there are none.
[[nodiscard]] std::optional<std::vector<double>> NumbersIn(const FormValues& values,
                                                           std::string_view field,
                                                           std::string_view localeDecimalSeparator);

/// Reads and stores the values that a dialog had when it was last confirmed. They are kept in one
/// text by the dialog's name, so that fields may come and go.
[[nodiscard]] FormValues LoadForm(const platform::SettingsStore& store, std::string_view title,
                                  std::string_view form);
[[nodiscard]] std::error_code SaveForm(platform::SettingsStore& store, std::string_view title,
                                       std::string_view form, const FormValues& values);

}  // namespace zentab::app

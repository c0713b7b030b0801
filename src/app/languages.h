#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/settings_store.h"

namespace zentab::app {

/// A catalogue that can be chosen for its language.
struct Language {
  std::filesystem::path file;
  std::string name;  // in the language itself
};

/// The catalogues of the folder "catalogues" beside the program that name their language, by that
/// name.
[[nodiscard]] std::vector<Language> ShippedLanguages(const std::filesystem::path& executable);

/// The catalogues in the order in which their words are applied, that of a start being
/// `catalogues`: those of the site win over the language's, which wins over the default one.
/// Without a language (an empty path) the order is that of the start.
[[nodiscard]] std::vector<std::filesystem::path> OrderOfWords(
    const std::vector<std::filesystem::path>& catalogues, const std::filesystem::path& language);

/// The catalogue of the language that was chosen last; empty where none was, or where it is no
/// longer there.
[[nodiscard]] std::filesystem::path KeptLanguage(const platform::SettingsStore& store,
                                                 std::string_view title,
                                                 const std::filesystem::path& executable);

/// Keeps the choice; an empty path stands for none.
[[nodiscard]] std::error_code KeepLanguage(platform::SettingsStore& store, std::string_view title,
                                           const std::filesystem::path& language);

}  // namespace zentab::app

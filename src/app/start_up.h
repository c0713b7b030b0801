#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/session.h"
#include "app/settings.h"
#include "platform/registry.h"

namespace zentab::app {

/// Where the registry names the test-set suite's installation.
inline constexpr std::string_view kSuiteKey = "SOFTWARE\\HALDOR\\MIRAXWIN";
inline constexpr std::string_view kSuiteValue = "MIRAX";

/// The folder of the test-set suite's installation: what the registry says, trimmed of blanks,
/// else the folder of the program's own executable. A relative one is taken from the folder the
/// program was started in, once and for all.
[[nodiscard]] std::string FindInstallFolder(const platform::Registry& registry,
                                            const std::filesystem::path& executable);

/// The decimal separator to show numbers with, from what the locale gives: without a trailing
/// control character and blanks; "," when the locale gives none.
[[nodiscard]] std::string DecimalSeparatorFrom(const std::optional<std::string>& localeItem);

/// The text catalogues of a start, in the order in which they are applied; all but the default one
/// lie in the installation folder. The first is applied
/// again with another table file. A base name that ends in "2" shares the catalogues of the
/// program without it; any other has the default catalogue, beside the executable, in the middle.
[[nodiscard]] std::vector<std::filesystem::path> CatalogueCandidates(
    const std::string& installFolder, const std::filesystem::path& executable);

/// Where the default catalogue is among them.
inline constexpr std::size_t kDefaultCatalogue = 2;

/// The session a start begins with: finds the installation folder, makes it the working folder,
/// and takes over the settings. A folder that is gone leaves the working folder as it was.
[[nodiscard]] Session StartSession(const Settings& settings, const platform::Registry& registry,
                                   const std::filesystem::path& executable);

}  // namespace zentab::app

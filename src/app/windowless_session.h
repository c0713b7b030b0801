#pragma once

#include <filesystem>
#include <system_error>

#include "app/session.h"
#include "app/settings.h"
#include "platform/registry.h"
#include "texts/apply_texts.h"

namespace zentab::app {

/// The session that a start without a window works with: the settings and the texts of the
/// catalogues that a window would have, with the words of a language's one where that is not empty.
/// The working folder stays.
[[nodiscard]] Session WindowlessSession(const Settings& settings,
                                        const platform::Registry& registry,
                                        const std::filesystem::path& executable,
                                        const std::filesystem::path& language = {});

/// Takes the texts of one more catalogue.
[[nodiscard]] std::error_code TakeTexts(Session& session, const std::filesystem::path& catalogue,
                                        texts::Extent extent = texts::Extent::WordsAndSettings);

}  // namespace zentab::app

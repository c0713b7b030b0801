#pragma once

#include <filesystem>
#include <system_error>

#include "app/session.h"
#include "app/settings.h"
#include "platform/registry.h"

namespace zentab::app {

/// The session that a start without a window works with: the settings and the texts of the
/// catalogues that a window would have. The working folder stays.
[[nodiscard]] Session WindowlessSession(const Settings& settings,
                                        const platform::Registry& registry,
                                        const std::filesystem::path& executable);

/// Takes the texts of one more catalogue.
[[nodiscard]] std::error_code TakeTexts(Session& session, const std::filesystem::path& catalogue);

}  // namespace zentab::app

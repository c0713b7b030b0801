#pragma once

#include <filesystem>
#include <system_error>

namespace zentab::app {

/// Whether the program has beside it what CopyDemo copies.
[[nodiscard]] bool HasDemo(const std::filesystem::path& executable);

/// A demo installation to play with: the one that a package keeps in "demo" beside the program,
/// copied into `folder`/installation, with the simulated instruments of "instruments" in it. An
/// empty `folder`/settings is made, and `folder`/registry names the installation to programs that
/// look for the suite there. Fails with std::errc::no_such_file_or_directory where the program has
/// no demo beside it, and with what the system says.
[[nodiscard]] std::error_code CopyDemo(const std::filesystem::path& executable,
                                       const std::filesystem::path& folder);

}  // namespace zentab::app

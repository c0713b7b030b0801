#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "app/form_values.h"
#include "platform/file_layer.h"

namespace zentab::app {

/// Copies a table file, byte for byte, in the place of any file that has the other name. Fails with
/// std::errc::no_such_file_or_directory when there is none, std::errc::file_exists when both names
/// are those of one file, and with what the system says; the other file is as it was then.
[[nodiscard]] std::error_code CopyTableFile(platform::FileLayer& files,
                                            const std::filesystem::path& from,
                                            const std::filesystem::path& to);

/// Creates a table file without entries. Fails with std::errc::file_exists.
[[nodiscard]] std::error_code CreateTableFile(platform::FileLayer& files,
                                              const std::filesystem::path& path);

/// The most table files that are remembered.
inline constexpr std::size_t kMostRecentFiles = 8;

/// The table files that were used last, the newest first.
[[nodiscard]] std::vector<std::string> RecentFilesIn(const FormValues& kept);
/// The same once `path` is in use; one that was there moves to the front.
[[nodiscard]] FormValues WithRecentFile(const FormValues& kept, std::string_view path);

}  // namespace zentab::app

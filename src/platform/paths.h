#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace zentab::platform {

class FileLayer;

/// The path that a UTF-8 text names on this platform, separators as they stand.
[[nodiscard]] std::filesystem::path ToPath(std::string_view utf8);

/// A path as UTF-8 text.
[[nodiscard]] std::string ToText(const std::filesystem::path& path);

/// `path` as an absolute one: a relative one is taken from the present working folder, an empty one
/// is that folder. Where the system does not tell its working folder the path stays as it is.
[[nodiscard]] std::filesystem::path AbsolutePath(const std::filesystem::path& path);

/// A fixed file name of the suite ("data\current\result.txt") below `folder`, its backslashes
/// turned into the platform's separator. Installation folders are copied between systems, so a
/// part that does not exist as written is taken from a folder entry that differs only in case;
/// a part found neither way stays as written. An empty folder means the working folder.
[[nodiscard]] std::filesystem::path FindFixedName(const std::filesystem::path& folder,
                                                  std::string_view name);

/// The same by way of a file layer; as written where that does not wait for it.
[[nodiscard]] std::filesystem::path FindFixedName(FileLayer& files,
                                                  const std::filesystem::path& folder,
                                                  std::string_view name);

/// The program's own executable file; an empty path when the system does not tell.
[[nodiscard]] std::filesystem::path ExecutablePath();

/// An executable's base name, by which settings, catalogues and log are named.
[[nodiscard]] std::string BaseName(const std::filesystem::path& executable);

/// Makes `folder` the working folder (on Windows its drive, too).
[[nodiscard]] std::error_code ChangeCurrentFolder(const std::filesystem::path& folder);

}  // namespace zentab::platform

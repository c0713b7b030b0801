#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// Writes the content of a file that is being replaced, or what is added to one.
using ContentWriter = std::function<std::error_code(OutputFile&)>;

/// Gives the file `path` a new content: a leftover `path`.new is removed, the content is written
/// there, flushed to the device and its size checked, and only then does it take the old file's
/// place in one step. After any error the old file is untouched and no ".new" file remains (when
/// even removing it fails, the next replacement does). A symbolic link stays one: the file it
/// points to is replaced. A read-only file, or one that is no regular file, is refused.
[[nodiscard]] std::error_code ReplaceFile(FileLayer& files, const std::filesystem::path& path,
                                          const ContentWriter& write);

/// Adds what `write` writes at the end of a file, creating it when it is missing, and flushes it to
/// the device. After an error the file has its former size, and one that was missing is missing
/// again.
[[nodiscard]] std::error_code AppendToFile(FileLayer& files, const std::filesystem::path& path,
                                           const ContentWriter& write);

/// As above, with the bytes at hand.
[[nodiscard]] std::error_code AppendToFile(FileLayer& files, const std::filesystem::path& path,
                                           std::string_view bytes);

}  // namespace zentab::platform

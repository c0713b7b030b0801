#pragma once

#include <string>
#include <system_error>

#include "cli/console.h"
#include "tables/table_writer.h"

namespace zentab::cli {

/// What changes table files for a command. A script decides itself what it keeps: no backups.
[[nodiscard]] tables::TableWriter Writer();

/// Ends a command with a message: there is no such entry in a file; a file was not written.
[[nodiscard]] Exit NotFound(const Console& console, const std::string& file,
                            const std::string& entry);
[[nodiscard]] Exit NotWritten(const Console& console, const std::string& file,
                              std::error_code error);

}  // namespace zentab::cli

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"
#include "tables/curve_table_entry.h"

namespace zentab::tables {

/// The names of a table file's entries, one for each line that has one, in file order. The
/// position of a name counts as its line's number everywhere below; lines without a name shift
/// that for the lines behind them, which is accepted. A missing or unreadable file has no names.
[[nodiscard]] std::vector<std::string> ListEntryNames(const std::filesystem::path& file);

/// An entry's name, and the number of its line from 0.
struct NamedLine {
  std::size_t number;
  std::string name;
};

/// The same names with the numbers of the lines that they really stand in.
[[nodiscard]] std::vector<NamedLine> ListNamedLines(const std::filesystem::path& file);

/// Line number `index` (from 0) as UTF-8, without its line end; nothing when the file cannot be
/// read or has no such line.
[[nodiscard]] std::optional<std::string> ReadEntryLine(const std::filesystem::path& file,
                                                       std::size_t index);

/// Takes line number `index` out of the file. All other bytes stay, and after an error every byte.
[[nodiscard]] std::error_code RemoveEntry(platform::FileLayer& files,
                                          const std::filesystem::path& file, std::size_t index);

/// Puts the entry's line in the place of line number `index`. All other bytes stay, and after an
/// error every byte.
[[nodiscard]] std::error_code ReplaceEntry(platform::FileLayer& files,
                                           const std::filesystem::path& file, std::size_t index,
                                           const CurveTableEntry& entry);

/// Adds the entry's line at the end of the file, which is created when it is missing. A last line
/// without a line end gets one first.
[[nodiscard]] std::error_code AppendEntry(platform::FileLayer& files,
                                          const std::filesystem::path& file,
                                          const CurveTableEntry& entry);

/// Whether one of the names equals `name`, letters of any alphabet compared without case.
[[nodiscard]] bool HasName(const std::vector<std::string>& names, std::string_view name);

}  // namespace zentab::tables

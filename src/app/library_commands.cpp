#include "app/library_commands.h"

#include <algorithm>
#include <optional>

#include "editor/grid_points.h"
#include "platform/paths.h"
#include "tables/entry_line.h"
#include "tables/table_library.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

std::error_code NoSuchLine() { return std::make_error_code(std::errc::result_out_of_range); }

}  // namespace

std::filesystem::path ActiveTableFile(const Session& session) {
  const std::filesystem::path path = platform::ToPath(session.tablePath);
  // Only a chosen file has a full path; a plain name is one of the installation's own files.
  return path.is_absolute() ? path : platform::FindFixedName({}, session.tablePath);
}

tables::CurveTableEntry LibraryCommands::EntryFromGrid(std::string_view name) const {
  return {std::string(name), editor::PointRows(session_.table.grid), session_.modes.milliseconds,
          session_.modes.absoluteValues, session_.instrument};
}

void LibraryCommands::FillEntryList() { session_.entryNames = tables::ListEntryNames(File()); }

std::error_code LibraryCommands::ReadEntry(std::size_t index) {
  const std::optional<std::string> line = tables::ReadEntryLine(File(), index);
  if (!line) return NoSuchLine();
  const tables::ParsedEntry entry = tables::ParseEntryLine(*line);
  editor::ShowPoints(session_.table.grid, entry.points, session_.localeDecimalSeparator);
  session_.modes.milliseconds = entry.milliseconds.value_or(session_.modes.milliseconds);
  session_.modes.absoluteValues = entry.absoluteValues.value_or(session_.modes.absoluteValues);
  session_.instrument = entry.instrument.value_or(session_.instrument);
  session_.table.tableModified = false;
  return {};
}

std::error_code LibraryCommands::RemoveEntry(std::size_t index) {
  if (index >= session_.entryNames.size()) return NoSuchLine();
  if (const std::error_code error = tables::RemoveEntry(files_, File(), index)) return error;
  session_.entryNames.erase(session_.entryNames.begin() + static_cast<std::ptrdiff_t>(index));
  return {};
}

std::error_code LibraryCommands::UpdateEntry(std::size_t index) {
  if (index >= session_.entryNames.size()) return NoSuchLine();
  const tables::CurveTableEntry entry = EntryFromGrid(session_.entryNames[index]);
  if (const std::error_code error = tables::ReplaceEntry(files_, File(), index, entry)) {
    return error;
  }
  session_.table.tableModified = false;
  return {};
}

NameResult LibraryCommands::EnterName(std::string_view typed) {
  std::string name(texts::TrimBlanks(typed));
  // A pasted line break would end the entry's line; file and list take a blank for it.
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  if (name.empty()) return NameResult::Empty;
  if (tables::HasName(session_.entryNames, name)) return NameResult::Duplicate;
  if (tables::AppendEntry(files_, File(), EntryFromGrid(name))) return NameResult::NotWritten;
  session_.entryNames.push_back(name);
  return NameResult::Added;
}

void LibraryCommands::SetActiveTable(std::string_view path) {
  session_.tablePath = path;
  FillEntryList();
}

}  // namespace zentab::app

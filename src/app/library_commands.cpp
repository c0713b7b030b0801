#include "app/library_commands.h"

#include <algorithm>

#include "editor/grid_points.h"
#include "platform/paths.h"
#include "tables/entry_line.h"
#include "texts/number_text.h"

namespace zentab::app {

std::filesystem::path ActiveTableFile(const Session& session) {
  const std::filesystem::path path = platform::ToPath(session.tablePath);
  // Only a chosen file has a full path; a plain name is one of the installation's own files.
  return path.is_absolute() ? path : platform::FindFixedName({}, session.tablePath);
}

tables::CurveTableEntry LibraryCommands::EntryFromGrid(std::string_view name) const {
  return {std::string(name),
          editor::PointRows(session_.table.grid, session_.localeDecimalSeparator),
          session_.modes.milliseconds, session_.modes.absoluteValues, session_.instrument};
}

void LibraryCommands::FillEntryList() {
  session_.listing = tables::ListEntries(File(), writer_.Alive());
}

bool LibraryCommands::RefreshEntryList(std::size_t& index) {
  return tables::Refresh(File(), session_.listing, index, writer_.Alive());
}

std::error_code LibraryCommands::ReadEntry(std::size_t& index) {
  std::string line;
  if (const auto error =
          tables::ReadEntryLine(File(), session_.listing, index, line, writer_.Alive())) {
    return error;
  }
  const tables::ParsedEntry entry = tables::ParseEntryLine(line);
  editor::ShowPoints(session_.table.grid, entry.points, session_.localeDecimalSeparator);
  session_.modes.milliseconds = entry.milliseconds.value_or(session_.modes.milliseconds);
  session_.modes.absoluteValues = entry.absoluteValues.value_or(session_.modes.absoluteValues);
  session_.instrument = entry.instrument.value_or(session_.instrument);
  session_.table.tableModified = false;
  return {};
}

std::error_code LibraryCommands::RemoveEntry(std::size_t& index) {
  return writer_.RemoveEntry(File(), session_.listing, index);
}

std::error_code LibraryCommands::UpdateEntry(std::size_t& index) {
  const std::vector<std::string>& names = session_.listing.names;
  if (index >= names.size()) return std::make_error_code(std::errc::result_out_of_range);
  const tables::CurveTableEntry entry = EntryFromGrid(names[index]);
  if (const auto error = writer_.ReplaceEntry(File(), session_.listing, index, entry)) return error;
  session_.table.tableModified = false;
  return {};
}

NameResult LibraryCommands::EnterName(std::string_view typed, std::size_t& index,
                                      std::error_code* reason) {
  std::string name(texts::TrimBlanks(typed));
  // A pasted line break would end the entry's line; file and list take a blank for it.
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  if (name.empty()) return NameResult::Empty;
  if (session_.listing.HasName(name, writer_.Alive())) return NameResult::Duplicate;
  const std::error_code error =
      writer_.AppendEntry(File(), session_.listing, index, EntryFromGrid(name));
  if (error == std::errc::file_exists) return NameResult::Duplicate;
  if (!error) return NameResult::Added;
  if (reason != nullptr) *reason = error;
  return NameResult::NotWritten;
}

void LibraryCommands::SetActiveTable(std::string_view path) {
  session_.tablePath = path;
  FillEntryList();
}

}  // namespace zentab::app

#include "app/library_commands.h"

#include <algorithm>

#include "editor/grid_points.h"
#include "platform/paths.h"
#include "tables/entry_line.h"
#include "texts/number_text.h"

namespace zentab::app {

std::filesystem::path ActiveTableFile(platform::FileLayer& files, const TablePlace& place) {
  std::filesystem::path path = platform::ToPath(place.tablePath);
  if (path.is_absolute()) return path;
  // Only a chosen file has a full path; a plain name is one of the installation's own files.
  return platform::FindFixedName(files, platform::ToPath(place.installFolder), place.tablePath);
}

tables::CurveTableEntry LibraryCommands::EntryFromGrid(std::string_view name) const {
  return {std::string(name),
          editor::PointRows(session_.table.grid, session_.localeDecimalSeparator),
          session_.modes.milliseconds, session_.modes.absoluteValues, session_.instrument};
}

std::error_code LibraryCommands::FillEntryList() {
  return tables::ListEntries(writer_.Files(), File(), session_.listing);
}

std::error_code LibraryCommands::ReadEntry(tables::EntryMark& mark) {
  std::string line;
  if (const auto error =
          tables::ReadEntryLine(writer_.Files(), File(), session_.listing, mark, line)) {
    return error;
  }
  const tables::ParsedEntry entry = tables::ParseEntryLine(line);
  editor::ShowPoints(session_.table.grid, entry.points, session_.localeDecimalSeparator);
  session_.modes.milliseconds = entry.milliseconds.value_or(session_.modes.milliseconds);
  session_.modes.absoluteValues = entry.absoluteValues.value_or(session_.modes.absoluteValues);
  session_.instrument = entry.instrument.value_or(session_.instrument);
  session_.table.tableModified = false;
  TakeAsSource(mark);
  return {};
}

void LibraryCommands::TakeAsSource(const tables::EntryMark& mark) {
  const std::vector<std::string>& names = session_.listing.names;
  const std::string name = mark.index < names.size() ? names[mark.index] : std::string();
  session_.source = editor::EntryInGrid{session_.tablePath, name, mark.hash};
  session_.stored = editor::PackPoints(session_.table.grid, session_.modes);
}

bool LibraryCommands::IsSourceGone(std::string_view name) const {
  const std::optional<editor::EntryInGrid>& source = session_.source;
  if (!source || source->tablePath != session_.tablePath || source->name != name) return false;
  return session_.listing.PlaceOf({0, source->hash}) == tables::kNoLine;
}

std::error_code LibraryCommands::RemoveEntry(tables::EntryMark& mark) {
  const std::uint64_t hash = mark.hash;
  if (const auto error = writer_.RemoveEntry(File(), session_.listing, mark)) return error;
  // What the user took away himself nobody else can have changed.
  if (session_.source && session_.source->hash == hash) session_.source.reset();
  return {};
}

std::error_code LibraryCommands::UpdateEntry(tables::EntryMark& mark) {
  const std::vector<std::string>& names = session_.listing.names;
  mark.index = session_.listing.PlaceOf(mark);
  if (mark.index >= names.size() || IsSourceGone(names[mark.index])) {
    return std::make_error_code(tables::kEntryChanged);
  }
  const tables::CurveTableEntry entry = EntryFromGrid(names[mark.index]);
  if (const auto error = writer_.ReplaceEntry(File(), session_.listing, mark, entry)) return error;
  session_.table.tableModified = false;
  TakeAsSource(mark);
  return {};
}

NameResult LibraryCommands::EnterName(std::string_view typed, std::error_code& error) {
  std::string name(texts::TrimBlanks(typed));
  // A pasted line break would end the entry's line; file and list take a blank for it.
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  if (name.empty()) return NameResult::Empty;
  if (session_.listing.HasName(name, writer_.Alive())) return NameResult::Duplicate;
  error = writer_.AppendEntry(File(), session_.listing, EntryFromGrid(name));
  if (error == std::errc::file_exists) return NameResult::Duplicate;
  return error ? NameResult::NotWritten : NameResult::Added;
}

std::error_code LibraryCommands::TakeLeftover() {
  const std::error_code error = writer_.TakeLeftover(File());
  return error ? error : FillEntryList();
}

std::error_code LibraryCommands::SetActiveTable(std::string_view path) {
  session_.tablePath = path;
  session_.listing = {};
  return FillEntryList();
}

}  // namespace zentab::app

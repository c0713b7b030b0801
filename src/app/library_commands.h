#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "app/session.h"
#include "tables/table_writer.h"

namespace zentab::app {

enum class NameResult {
  Empty,      // nothing was typed: the name box closes
  Added,      // the table stands in the file under this name, at the end of the list
  Duplicate,  // the list has this name already
  NotWritten  // the file could not be written; nothing changed
};

/// What names the active table file.
struct TablePlace {
  std::string installFolder;
  std::string tablePath;
};
[[nodiscard]] inline TablePlace PlaceOf(const Session& session) {
  return {session.installFolder, session.tablePath};
}

/// The active table file: relative names are those of the installation's own files, wherever the
/// working folder is.
[[nodiscard]] std::filesystem::path ActiveTableFile(platform::FileLayer& files,
                                                    const TablePlace& place);

/// The commands on the library of curve tables: each works on whole lines of the active table
/// file. Other programs may change the file at any time: a command that finds it changed lists it
/// anew, its mark follows the entry's line, and the command goes on there; when no line is the one
/// of the mark any more it fails with tables::kEntryChanged. None of them asks the user; a failure
/// changes neither the file nor the table in the grid.
class LibraryCommands {
 public:
  LibraryCommands(Session& session, tables::TableWriter& writer)
      : session_(session), writer_(writer) {}

  /// Lists the active table file in the session.
  [[nodiscard]] std::error_code FillEntryList();

  /// Brings an entry into the grid, with the settings that it gives. When its line cannot be read
  /// the grid keeps what it holds.
  [[nodiscard]] std::error_code ReadEntry(tables::EntryMark& mark);

  /// Takes an entry out of the file and the list. The grid stays.
  [[nodiscard]] std::error_code RemoveEntry(tables::EntryMark& mark);

  /// Writes the grid and the settings under the entry's name. Fails with tables::kEntryChanged,
  /// too, when the grid was read from an entry of this name that someone else has changed since.
  [[nodiscard]] std::error_code UpdateEntry(tables::EntryMark& mark);

  /// A name was entered for the grid's table: adds it to file and list. `error` says why it was not
  /// written.
  [[nodiscard]] NameResult EnterName(std::string_view typed, std::error_code& error);

  /// Whether another program has left the entries of the active file in FILE.new, and no file.
  [[nodiscard]] bool FindsLeftover() const { return writer_.FindsLeftover(File()); }
  /// Makes that the file and lists it.
  [[nodiscard]] std::error_code TakeLeftover();

  /// Makes another table file the active one and lists it.
  [[nodiscard]] std::error_code SetActiveTable(std::string_view path);

 private:
  [[nodiscard]] tables::CurveTableEntry EntryFromGrid(std::string_view name) const;
  [[nodiscard]] std::filesystem::path File() const {
    return ActiveTableFile(writer_.Files(), PlaceOf(session_));
  }
  void TakeAsSource(const tables::EntryMark& mark);
  [[nodiscard]] bool IsSourceGone(std::string_view name) const;

  Session& session_;
  tables::TableWriter& writer_;
};

}  // namespace zentab::app

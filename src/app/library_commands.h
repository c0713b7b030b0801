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

/// The active table file: relative names are those of the installation's own files.
[[nodiscard]] std::filesystem::path ActiveTableFile(const Session& session);

/// The commands on the library of curve tables: each works on whole lines of the active table
/// file. `index` is a position in the list of names. Other programs may change the file at any
/// time: a command that finds it changed lists it anew, `index` follows its line, and the command
/// goes on there; when no line is the one that was listed any more it fails with
/// tables::kEntryChanged, and `index` is that of an entry of the same name or tables::kNoLine. None
/// of them asks the user; a failure changes neither the file nor the table in the grid.
class LibraryCommands {
 public:
  LibraryCommands(Session& session, tables::TableWriter& writer)
      : session_(session), writer_(writer) {}

  /// Lists the active table file in the session.
  void FillEntryList();

  /// The same, if the file has changed since it was listed; whether it had.
  [[nodiscard]] bool RefreshEntryList(std::size_t& index);

  /// Brings an entry into the grid, with the settings that it gives. When its line cannot be read
  /// the grid keeps what it holds.
  [[nodiscard]] std::error_code ReadEntry(std::size_t& index);

  /// Takes an entry out of the file and the list. The grid stays.
  [[nodiscard]] std::error_code RemoveEntry(std::size_t& index);

  /// Writes the grid and the settings under the name at `index`.
  [[nodiscard]] std::error_code UpdateEntry(std::size_t& index);

  /// A name was entered for the grid's table: adds it to file and list. `index` stays on its line.
  /// `reason` (null: not asked for) gets why it was not written.
  [[nodiscard]] NameResult EnterName(std::string_view typed, std::size_t& index,
                                     std::error_code* reason = nullptr);

  /// Makes another table file the active one and lists it.
  void SetActiveTable(std::string_view path);

 private:
  [[nodiscard]] tables::CurveTableEntry EntryFromGrid(std::string_view name) const;
  [[nodiscard]] std::filesystem::path File() const { return ActiveTableFile(session_); }

  Session& session_;
  tables::TableWriter& writer_;
};

}  // namespace zentab::app

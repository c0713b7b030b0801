#pragma once

#include <cstddef>
#include <string_view>
#include <system_error>
#include <vector>

#include "app/entry_order.h"
#include "app/session.h"
#include "tables/table_writer.h"

namespace zentab::app {

/// The entries that a command is meant for, and afterwards those that it has left to be shown: by
/// the marks of their lines, in the order of the file.
using EntryMarks = std::vector<tables::EntryMark>;

/// The marks of entries, by their places among all names.
[[nodiscard]] EntryMarks MarksOf(const tables::TableListing& listing,
                                 const std::vector<std::size_t>& places);
/// The places among all names that marks have now; those that are gone are left out.
[[nodiscard]] std::vector<std::size_t> PlacesOf(const tables::TableListing& listing,
                                                const EntryMarks& marks);

/// The commands on several entries of the library, and on their names and order: each is one change
/// of the active table file, in the guarded way of tables::TableWriter. They fail with
/// tables::kEntryChanged when someone else has changed or removed one of the entries; the listing
/// is up to date then. None of them touches the grid.
class EntryCommands {
 public:
  EntryCommands(Session& session, tables::TableWriter& writer)
      : session_(session), writer_(writer) {}

  /// Takes entries out of the file. Nothing of them is left in `marks`.
  [[nodiscard]] std::error_code Remove(EntryMarks& marks);

  /// Puts a copy behind each of the entries; `marks` are those of the copies then. Fails, too, with
  /// std::errc::not_supported when one cannot have another name.
  [[nodiscard]] std::error_code Duplicate(EntryMarks& marks);

  /// Gives the only one of the marks another name (UTF-8), without the blanks around it. Fails,
  /// too, with std::errc::file_exists when another entry has the name, letters compared without
  /// case, and std::errc::invalid_argument when no line can hold it.
  [[nodiscard]] std::error_code Rename(EntryMarks& marks, std::string_view name);

  /// Puts entries, one behind the other, in front of the one that has that place among all names;
  /// behind the last one where none has. Nothing is written where they are there already.
  [[nodiscard]] std::error_code Move(EntryMarks& marks, std::size_t place);

  /// Writes all entries in an order; `isChanged` tells whether they stood in another one. Lines
  /// without a name stay where they are.
  [[nodiscard]] std::error_code Sort(EntryOrder order, bool& isChanged);

 private:
  [[nodiscard]] std::filesystem::path File() const;
  [[nodiscard]] std::error_code Find(EntryMarks& marks, std::vector<std::size_t>& lines);
  [[nodiscard]] std::error_code WriteOrder(const std::vector<std::size_t>& places, bool& isChanged);

  Session& session_;
  tables::TableWriter& writer_;
};

}  // namespace zentab::app

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "editor/curve_grid.h"
#include "editor/value_modes.h"
#include "tables/curve_table_entry.h"

namespace zentab::editor {

/// The entry that was read into the grid, or last written from it.
struct EntryInGrid {
  std::string tablePath;
  std::string name;
  std::uint64_t hash;  // of its line

  friend bool operator==(const EntryInGrid&, const EntryInGrid&) = default;
};

/// Points, value modes and instrument in one text of some hundred bytes, for keeping thousands of
/// them. Two are equal when the tables are. It begins with what PackPoints gives.
using PackedTable = std::string;

/// Where the grid's table comes from, and what it was when it was read or stored last.
struct TableOrigin {
  std::optional<EntryInGrid> source;
  std::string stored;  // as of PackPoints

  friend bool operator==(const TableOrigin&, const TableOrigin&) = default;
};

/// All that the user changes in the table, as it was at one moment.
struct TableState {
  PackedTable table;
  std::shared_ptr<const TableOrigin> origin;
  int row = kFirstRow;  // the current cell
  int column = kLoadColumn;
  bool modified = false;

  /// Whether it is another table than the one that was read or stored last.
  [[nodiscard]] bool DiffersFromStored() const { return !table.starts_with(origin->stored); }
};

/// What an entry of a library has of a table, but for its instrument: the points and how they are
/// meant.
[[nodiscard]] std::string PackPoints(const CurveGrid& grid, const ValueModes& modes);

[[nodiscard]] PackedTable Pack(const CurveGrid& grid, const ValueModes& modes,
                               tables::Instrument instrument);

/// Brings a packed table back; the headings and the current cell stay. `table` comes from Pack.
void Unpack(const PackedTable& table, CurveGrid& grid, ValueModes& modes,
            tables::Instrument& instrument);

}  // namespace zentab::editor

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editor/curve_grid.h"
#include "editor/value_modes.h"
#include "tables/curve_table_entry.h"
#include "tables/table_listing.h"
#include "texts/catalogue_texts.h"

namespace zentab::app {

/// The entry that was read into the grid, or last written from it.
struct EntryInGrid {
  std::string tablePath;
  std::string name;
  std::uint64_t hash;  // of its line
};

/// The state of the main window that is not a widget's own. Texts are UTF-8.
struct Session {
  std::string baseName;                // of the executable; names catalogues and log
  std::string installFolder;           // the absolute path of the suite's installation
  std::string localeDecimalSeparator;  // what numbers are shown with
  std::string tablePath;               // the active table file; may be relative to that folder
  editor::WorkingTable table;
  editor::ValueModes modes;
  tables::Instrument instrument = tables::Instrument::None;
  texts::CatalogueTexts texts;
  std::optional<EntryInGrid> source;  // where the grid's table comes from, if from the library
  std::string exchangeFile;           // the file chosen last for copying entries
  tables::TableListing listing;       // of the active table file, as List1 shows it
};

}  // namespace zentab::app

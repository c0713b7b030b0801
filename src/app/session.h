#pragma once

#include <optional>
#include <string>

#include "editor/curve_grid.h"
#include "editor/table_state.h"
#include "editor/value_modes.h"
#include "tables/curve_table_entry.h"
#include "tables/table_listing.h"
#include "texts/catalogue_texts.h"

namespace zentab::app {

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
  // Where the grid's table comes from, if from a library.
  std::optional<editor::EntryInGrid> source;
  // The table that was read or stored last, as of editor::PackPoints.
  std::string stored = editor::PackPoints({}, {});
  std::string exchangeFile;      // the file chosen last for copying entries
  tables::TableListing listing;  // of the active table file, as List1 shows it
  bool isWithoutSuite = false;   // no installation is known: the folder is the program's own
};

}  // namespace zentab::app

#pragma once

#include <string>

namespace zentab::texts {

/// What the commands on the library and its entries say; "%1" and so on are filled in.
struct LibraryTexts {
  std::string noRecent = "None yet";
  std::string notCreated = "The table file was not created";
  std::string notCopied = "The table file was not copied";
  std::string copied = "Copied to %1";
  std::string noBackup = "This table file has no backup yet";
  // on several entries
  std::string removeSeveral = "Remove the %1 selected entries from the table file?";
  std::string notAName = "\"%1\" cannot be the name of an entry";
  std::string notDuplicated = "An entry that can be given no other name cannot be duplicated";
  std::string movesInFileOrder =
      "Entries can be moved only while the list shows the whole file in its own order";
  std::string sortHeading = "Sort file";
  std::string sortBy = "Write the entries of the table file in the order of their";
  std::string byName = "&names";
  std::string byInstrument = "&instruments, then names";
  std::string isSorted = "The table file has this order already";
  std::string tooManyCurves = "At most %1 curves can be added at once";
  // tooltip of an entry
  std::string points = "%1 points";
  std::string onePoint = "%1 point";
  std::string noPoints = "No points";
  std::string loads = "Load: %1 to %2 %3";
  std::string multiples = "Load: %1 to %2 × pickup";
  std::string times = "Time: %1 to %2 %3";
  // export
  std::string exportHeading = "Export entries";
  std::string exportWhich = "Entries";
  std::string exportSelected = "&Selected: %1";
  std::string exportAll = "&All: %1";
  std::string exportFormat = "Format";
  std::string exportOwn =
      "CSV for spreadsheets on this &computer (separator \"%1\", decimal sign \"%2\")";
  std::string exportNeutral = "&Neutral CSV (separator \",\", decimal sign \".\")";
  std::string exportJson = "&JSON, from which the same table file can be made";
  std::string exported = "Exported: %1";
  std::string notExported = "The entries could not be exported";
};

}  // namespace zentab::texts

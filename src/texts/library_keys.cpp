#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& LibraryRows() {
  using T = LibraryTexts;
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.5.HEADING", Caption{"m_library"}, true},
      {"F1.MENU.5.NEW", Caption{"m_newlib"}, true},
      {"F1.MENU.5.RECENT", Caption{"m_recent"}, true},
      {"F1.MENU.5.COPY", Caption{"m_savecopy"}, true},
      {"F1.MENU.5.FOLDER", Caption{"m_folder"}, true},
      {"F1.MENU.5.BACKUP", Caption{"m_backup"}, true},
      {"LIBRARY.RECENT.NONE", LibraryField{&T::noRecent}},
      {"LIBRARY.NEW.FAILED", LibraryField{&T::notCreated}},
      {"LIBRARY.COPY.FAILED", LibraryField{&T::notCopied}},
      {"LIBRARY.COPY.DONE", LibraryField{&T::copied}},
      {"LIBRARY.BACKUP.NONE", LibraryField{&T::noBackup}},
  };
  return rows;
}

}  // namespace zentab::texts

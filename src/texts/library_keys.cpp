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
      {"F1.MENU.5.RENAME", Caption{"m_rename"}, true},
      {"F1.MENU.5.DUPLICATE", Caption{"m_duplicate"}, true},
      {"F1.MENU.5.UP", Caption{"m_entryup"}, true},
      {"F1.MENU.5.DOWN", Caption{"m_entrydown"}, true},
      {"F1.MENU.5.OTHERFILE", Caption{"m_copyentries"}, true},
      {"F1.MENU.5.EXPORT", Caption{"m_exportentries"}, true},
      {"F1.MENU.5.ORDER", Caption{"m_order"}, true},
      {"F1.MENU.5.ORDER.FILE", Caption{"m_orderfile"}, true},
      {"F1.MENU.5.ORDER.NAME", Caption{"m_ordername"}, true},
      {"F1.MENU.5.ORDER.INSTRUMENT", Caption{"m_orderinstrument"}, true},
      {"F1.MENU.5.SORT", Caption{"m_sortfile"}, true},
      {"LIBRARY.RECENT.NONE", LibraryField{&T::noRecent}},
      {"LIBRARY.NEW.FAILED", LibraryField{&T::notCreated}},
      {"LIBRARY.COPY.FAILED", LibraryField{&T::notCopied}},
      {"LIBRARY.COPY.DONE", LibraryField{&T::copied}},
      {"LIBRARY.BACKUP.NONE", LibraryField{&T::noBackup}},
      {"LIBRARY.REMOVE.SEVERAL", LibraryField{&T::removeSeveral}},
      {"LIBRARY.RENAME.FAILED", LibraryField{&T::notAName}},
      {"LIBRARY.DUPLICATE.FAILED", LibraryField{&T::notDuplicated}},
      {"LIBRARY.MOVE.ORDER", LibraryField{&T::movesInFileOrder}},
      {"LIBRARY.SORT.HEADING", LibraryField{&T::sortHeading}},
      {"LIBRARY.SORT.BY", LibraryField{&T::sortBy}},
      {"LIBRARY.SORT.NAME", LibraryField{&T::byName}},
      {"LIBRARY.SORT.INSTRUMENT", LibraryField{&T::byInstrument}},
      {"LIBRARY.SORT.NONE", LibraryField{&T::isSorted}},
      {"LIBRARY.CURVES.MOST", LibraryField{&T::tooManyCurves}},
      {"LIBRARY.TIP.POINTS", LibraryField{&T::points}},
      {"LIBRARY.TIP.ONE", LibraryField{&T::onePoint}},
      {"LIBRARY.TIP.NONE", LibraryField{&T::noPoints}},
      {"LIBRARY.TIP.LOADS", LibraryField{&T::loads}},
      {"LIBRARY.TIP.MULTIPLES", LibraryField{&T::multiples}},
      {"LIBRARY.TIP.TIMES", LibraryField{&T::times}},
      {"LIBRARY.EXPORT.HEADING", LibraryField{&T::exportHeading}},
      {"LIBRARY.EXPORT.WHICH", LibraryField{&T::exportWhich}},
      {"LIBRARY.EXPORT.SELECTED", LibraryField{&T::exportSelected}},
      {"LIBRARY.EXPORT.ALL", LibraryField{&T::exportAll}},
      {"LIBRARY.EXPORT.FORMAT", LibraryField{&T::exportFormat}},
      {"LIBRARY.EXPORT.OWN", LibraryField{&T::exportOwn}},
      {"LIBRARY.EXPORT.NEUTRAL", LibraryField{&T::exportNeutral}},
      {"LIBRARY.EXPORT.JSON", LibraryField{&T::exportJson}},
      {"LIBRARY.EXPORT.DONE", LibraryField{&T::exported}},
      {"LIBRARY.EXPORT.FAILED", LibraryField{&T::notExported}},
  };
  return rows;
}

}  // namespace zentab::texts

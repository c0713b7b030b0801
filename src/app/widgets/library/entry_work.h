#pragma once

#include <QObject>

#include "app/widgets/library/entry_parts.h"
#include "editor/edit_step.h"

class QMenu;
class QMenuBar;

namespace zentab::app {

class EntriesController;
class LibraryExportController;
class LibraryFilesController;

/// All that is done with the entries of the list beyond reading, updating, adding and removing one:
/// its parts, and the menu Library.
class EntryWork : public QObject {
  Q_OBJECT

 public:
  explicit EntryWork(const EntryParts& parts);

  /// Adds the menu, with the commands on the file as a whole first.
  QMenu* AddMenu(QMenuBar& bar, LibraryFilesController& tableFiles);

 Q_SIGNALS:
  void CommandBegun();
  void AboutToChange(zentab::editor::EditStep step);
  void Failed(const QString& text);
  void Told(const QString& text);

 private:
  EntryParts parts_;
  EntriesController* entries_;
  LibraryExportController* export_;
};

}  // namespace zentab::app

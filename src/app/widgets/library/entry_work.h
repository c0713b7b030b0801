#pragma once

#include <QObject>

#include "app/session.h"
#include "editor/edit_step.h"
#include "tables/table_writer.h"

class QMenu;
class QMenuBar;

namespace zentab::app {

class EntriesController;
class KeptForms;
class LibraryController;
class LibraryExportController;
class LibraryFilesController;
class LibraryPanel;
class ResponsiveFiles;
class UserDialogs;

/// All that is done with the entries of the list beyond reading, updating, adding and removing one:
/// its parts, and the menu Library.
class EntryWork : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Session& session;
    ResponsiveFiles& files;
    tables::TableWriter& writer;
    UserDialogs& dialogs;
    KeptForms& forms;
    LibraryController& library;
    LibraryPanel& panel;
  };
  explicit EntryWork(const Parts& parts);

  /// Adds the menu, with the commands on the file as a whole first.
  QMenu* AddMenu(QMenuBar& bar, LibraryFilesController& tableFiles);

 Q_SIGNALS:
  void CommandBegun();
  void AboutToChange(zentab::editor::EditStep step);
  void Failed(const QString& text);
  void Told(const QString& text);

 private:
  Parts parts_;
  EntriesController* entries_;
  LibraryExportController* export_;
};

}  // namespace zentab::app

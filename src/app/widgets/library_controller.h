#pragma once

#include <QObject>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/widgets/user_dialogs.h"

namespace zentab::app {

class LibraryPanel;

/// Carries out the commands of the library panel: asks where the user has to agree, runs the
/// command, and tells what has to be shown anew.
class LibraryController : public QObject {
  Q_OBJECT

 public:
  LibraryController(Session& session, platform::FileLayer& files, UserDialogs& dialogs,
                    LibraryPanel& panel);

  /// Lists the active table file and selects its first entry.
  void FillEntryList();

 public Q_SLOTS:
  void Read();
  void Remove();
  void AddNew();
  void Update();
  void EnterName(const QString& name);
  void SetActiveTable();

 Q_SIGNALS:
  /// A command is about to use the grid: an open cell editor closes.
  void GridNeeded();
  /// Grid and settings hold another table.
  void TableRead();
  /// Another table file became the active one.
  void TableFileChosen();
  /// The active file, its entries or the modified mark changed.
  void LibraryChanged();
  /// The file could not be read or written; `text` says so in one line.
  void Failed(const QString& text);

 private:
  [[nodiscard]] bool Agreed(MessageBox box, std::size_t index) const;
  void ReportFailure(const std::string& text, std::error_code error);

  Session& session_;
  LibraryCommands commands_;
  UserDialogs& dialogs_;
  LibraryPanel& panel_;
};

}  // namespace zentab::app

#pragma once

#include <QObject>
#include <optional>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"

class QTimer;

namespace zentab::app {

class LibraryPanel;
class ResponsiveFiles;

/// Carries out the commands of the library panel: asks where the user has to agree, runs the
/// command, and tells what has to be shown anew. Other programs may change the table file: the list
/// is then shown anew, at the next command or within about a second.
class LibraryController : public QObject {
  Q_OBJECT

 public:
  LibraryController(Session& session, ResponsiveFiles& files, tables::TableWriter& writer,
                    UserDialogs& dialogs, LibraryPanel& panel, int lookEvery);

  /// Lists the active table file and selects its first entry.
  void FillEntryList();

  /// The entry that is selected; one that is nowhere when none is.
  [[nodiscard]] tables::EntryMark SelectedMark() const;
  /// The library was changed and listed by other means than these commands: shows it, an entry
  /// selected.
  void ShowChanged(const tables::EntryMark& entry);
  /// Selects the entry that the grid's table comes from, where the list has it.
  void SelectSource();
  /// Reads the line of an entry; says so where it cannot be read.
  [[nodiscard]] bool ReadLine(tables::EntryMark mark, std::string& line);
  /// Why the active table file was not changed, in one line.
  [[nodiscard]] QString WriteFailureText(std::error_code error) const;

 public Q_SLOTS:
  void Read();
  void Remove();
  void AddNew();
  void Update();
  void EnterName(const QString& name);
  void SetActiveTable();
  /// Makes a file, there or not, the active one.
  void OpenTable(const QString& file);
  /// Shows the list anew if the file has changed and has not changed again since the last look.
  /// The selection stays with its line; a line that is gone has none.
  void LookAtFile();
  /// Shows the list anew if the file has changed; the selection follows its entry.
  /// The same after entries were added to the file: a filter that hides any of them is cleared.
  void ShowAddedEntries();

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// What was said of the command before is over.
  void CommandBegun();
  /// A command is about to use the grid: an open cell editor closes.
  void GridNeeded();
  /// Grid and settings hold another table.
  void TableRead();
  /// Several entries are selected that are to be removed.
  void SeveralRemovalsWanted();
  /// Another table file became the active one.
  void TableFileChosen();
  /// The active file, its entries or the modified mark changed.
  void LibraryChanged();
  /// The file could not be read or written; `text` says so in one line.
  void Failed(const QString& text);

 private:
  using Command = std::error_code (LibraryCommands::*)(tables::EntryMark&);

  struct Look {
    std::error_code error;
    std::optional<platform::FileStamp> stamp;
  };
  struct Listed {
    std::string tablePath;
    tables::TableListing listing;
    bool isRead = false;
  };

  void ShowFromStart(std::error_code error);
  void Filter(const QString& text);
  void ListQuietly();
  void Take(tables::TableListing fresh);
  /// What a command works on: nothing while another one is at work, or when someone else has
  /// changed what was selected.
  [[nodiscard]] std::optional<tables::EntryMark> Begin();
  [[nodiscard]] bool Agreed(MessageBox box, const tables::EntryMark& mark) const;
  [[nodiscard]] const std::string& WriteFailure() const;
  [[nodiscard]] bool Run(Command command, tables::EntryMark& mark);
  /// Whether the user wants back what another program has left in the place of the file.
  [[nodiscard]] bool TakesLeftover();
  [[nodiscard]] NameResult Add(const QString& name, std::error_code& error);

  Session& session_;
  ResponsiveFiles& files_;
  const tables::TableWriter& writer_;
  LibraryCommands commands_;
  UserDialogs& dialogs_;
  LibraryPanel& panel_;
  QTimer* watch_;
  std::optional<platform::FileStamp> seen_;  // at the last look
  bool isLooking_ = false;
  bool isLost_ = false;  // someone else has changed the entry that was selected
};

}  // namespace zentab::app

#pragma once

#include <QObject>
#include <string>

#include "app/session.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"
#include "exchange/widgets/exchange_dialog.h"
#include "platform/settings_store.h"
#include "tables/table_writer.h"

namespace zentab::app {

class ResponsiveFiles;

/// Copies entries between the active table file and another one, in the dialog `Form2`. A file that
/// other programs have changed since its entries were listed is listed anew instead of copied from.
class ExchangeController : public QObject {
  Q_OBJECT

 public:
  /// `title` is the program's title, under which the dialog's place is kept.
  ExchangeController(Session& session, ResponsiveFiles& files, tables::TableWriter& writer,
                     UserDialogs& dialogs, platform::SettingsStore& store, std::string title,
                     QWidget& window);

 public Q_SLOTS:
  /// From another file into the active one; returns when the dialog has closed.
  void Import();
  /// The same from a file that is given; another one can still be chosen.
  void ImportFrom(const QString& file);
  /// From the active file into another one; returns while the dialog is open.
  void Export();

 Q_SIGNALS:
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The dialog has closed, and the active file has got entries.
  void EntriesAdded();

 private:
  enum class Mode { Import, Export };

  [[nodiscard]] exchange::ExchangeDialog* MakeDialog(Mode mode);
  void ChooseFile(exchange::ExchangeDialog& dialog);
  void Execute(exchange::ExchangeDialog& dialog);
  void ShowTexts(exchange::ExchangeDialog& dialog) const;
  void ShowSelection(exchange::ExchangeDialog& dialog) const;
  void StorePlacement(const exchange::ExchangeDialog& dialog);
  [[nodiscard]] bool CopiesOntoItself();
  [[nodiscard]] std::filesystem::path Source();
  [[nodiscard]] std::error_code ListSource();

  Session& session_;
  ResponsiveFiles& files_;
  tables::TableWriter& writer_;
  UserDialogs& dialogs_;
  platform::SettingsStore& store_;
  std::string title_;
  QWidget& window_;

  Mode mode_ = Mode::Import;
  QString given_;  // the file to begin with
  bool fileChosen_ = false;
  bool activeFileGrew_ = false;
  tables::TableListing listing_;  // the entries in the dialog's list
  EntryListModel entries_{listing_.names, nullptr};
};

}  // namespace zentab::app

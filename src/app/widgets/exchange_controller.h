#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "app/session.h"
#include "app/widgets/entry_list_model.h"
#include "app/widgets/user_dialogs.h"
#include "exchange/widgets/exchange_dialog.h"
#include "platform/file_layer.h"
#include "platform/settings_store.h"

namespace zentab::app {

/// Copies entries between the active table file and another one, in the dialog `Form2`. The dialog
/// is modal: while it lists the entries of the active file, that file stays as it is.
class ExchangeController : public QObject {
  Q_OBJECT

 public:
  /// `title` is the program's title, under which the dialog's place is kept.
  ExchangeController(Session& session, platform::FileLayer& files, UserDialogs& dialogs,
                     platform::SettingsStore& store, std::string title, QWidget& window);

 public Q_SLOTS:
  /// From another file into the active one; returns when the dialog has closed.
  void Import();
  /// From the active file into another one; returns while the dialog is open.
  void Export();

 Q_SIGNALS:
  /// The dialog has closed, and the active file may have got entries.
  void EntriesAdded();

 private:
  enum class Mode { Import, Export };

  [[nodiscard]] exchange::ExchangeDialog* MakeDialog(Mode mode);
  void ChooseFile(exchange::ExchangeDialog& dialog);
  void Execute(exchange::ExchangeDialog& dialog);
  void ShowTexts(exchange::ExchangeDialog& dialog) const;
  void ShowSelection(exchange::ExchangeDialog& dialog) const;
  void StorePlacement(const exchange::ExchangeDialog& dialog) const;
  [[nodiscard]] bool CopiesOntoItself() const;

  Session& session_;
  platform::FileLayer& files_;
  UserDialogs& dialogs_;
  platform::SettingsStore& store_;
  std::string title_;
  QWidget& window_;

  Mode mode_ = Mode::Import;
  bool fileChosen_ = false;
  std::vector<std::string> names_;  // of the entries in the dialog's list
  EntryListModel entries_{names_, nullptr};
};

}  // namespace zentab::app

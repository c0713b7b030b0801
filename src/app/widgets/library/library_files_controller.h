#pragma once

#include <QObject>
#include <string>

#include "app/form_values.h"
#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "platform/settings_store.h"

class QMenu;

namespace zentab::app {

class ExchangeController;
class LibraryController;
class ResponsiveFiles;

/// The commands on table files as a whole: a new one, a copy, those used last, the folder and the
/// backup.
class LibraryFilesController : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Session& session;
    ResponsiveFiles& files;
    UserDialogs& dialogs;
    platform::SettingsStore& store;
    std::string title;  // the program's, under which the files are remembered
    LibraryController& library;
    ExchangeController& exchange;
  };

  LibraryFilesController(Parts parts, QObject* parent);

  /// Adds the commands.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  /// Makes a file the active one.
  void Open(const QString& path);
  void NewLibrary();
  void SaveCopy();
  void OpenFolder();
  void ShowBackup();
  /// The active table file is another one.
  void Remember();

 Q_SIGNALS:
  void CommandBegun();
  /// Nothing was done, or what was done; `text` says so in one line.
  void Told(const QString& text);

 private:
  void FillRecent();
  [[nodiscard]] FormValues Kept() const;

  Parts parts_;
  QMenu* recent_ = nullptr;
};

}  // namespace zentab::app

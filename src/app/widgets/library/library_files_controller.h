#pragma once

#include <QObject>

#include "app/session.h"
#include "app/widgets/files/kept_forms.h"
#include "app/widgets/user_dialogs.h"

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
    KeptForms forms;
    LibraryController& library;
    ExchangeController& exchange;
  };

  LibraryFilesController(Parts parts, QObject* parent);

  /// Adds the commands.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  /// Makes a file the active one.
  void Open(const QString& path);
  /// The same with a file that was named when the program was started; one that is not there is
  /// told of.
  void OpenNamed(const QString& path);
  void NewLibrary();
  void SaveCopy();
  void OpenFolder();
  void ShowBackup();
  /// The active table file is another one.
  void Remember() const;

 Q_SIGNALS:
  void CommandBegun();
  /// Nothing was done, or what was done; `text` says so in one line.
  void Told(const QString& text);

 private:
  void FillRecent();

  Parts parts_;
  QMenu* recent_ = nullptr;
};

}  // namespace zentab::app

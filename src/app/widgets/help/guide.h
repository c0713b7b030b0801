#pragma once

#include <QObject>
#include <filesystem>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

namespace zentab::app {

/// Shows the pages of the guide, which lie in the folder "guide" beside the program. In a dialog F1
/// shows the page on what the dialog does; in the main window the menu has that key.
class Guide : public QObject {
  Q_OBJECT

 public:
  Guide(const Session& session, UserDialogs& dialogs, const std::filesystem::path& executable,
        QWidget& form);

  /// The page on what `widget` is a part of.
  void OpenFor(const QWidget* widget);
  /// The page about `name`, as of the file without ".html".
  void Open(const QString& name);

 Q_SIGNALS:
  /// No page could be shown; `text` says so in one line.
  void Told(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const Session& session_;
  UserDialogs& dialogs_;
  std::filesystem::path folder_;
  QWidget& form_;
};

}  // namespace zentab::app

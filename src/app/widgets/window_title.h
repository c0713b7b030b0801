#pragma once

#include <QObject>
#include <QString>

#include "app/session.h"

class QMainWindow;

namespace zentab::app {

/// Puts the table file's name behind the window's own title, with the system's mark while the
/// grid holds edits.
class WindowTitle : public QObject {
  Q_OBJECT

 public:
  WindowTitle(const Session& session, QMainWindow& window);

 public Q_SLOTS:
  void Refresh();

 private:
  const Session& session_;
  QMainWindow& window_;
  QString own_;    // of the catalogue
  QString shown_;  // with the file
};

}  // namespace zentab::app

#pragma once

#include <QMainWindow>

#include "app/event_log.h"
#include "app/session.h"
#include "app/widgets/help/text_table_dialog.h"

class QMenu;

namespace zentab::app {

class Guide;

/// The menu that helps: the guide, the keys, the log of the session and what the program is made
/// of.
class HelpMenu : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    const Session& session;
    const EventLog& log;
    QMainWindow& form;
    Guide& guide;
  };

  /// Adds the menu to the window's.
  explicit HelpMenu(const Parts& parts);

 private:
  void ShowGuide();
  void ShowKeys();
  void ShowLog();
  void ShowAbout();
  void Show(const char* action, TextTable table);

  Parts parts_;
};

}  // namespace zentab::app

#pragma once

#include <QObject>

#include "app/entry_order.h"

class QActionGroup;
class QMenu;

namespace zentab::app {

class KeptForms;
class LibraryPanel;
class ResponsiveFiles;

/// The order that the list shows the entries in, which is kept in the settings. The file stays as
/// it is.
class EntryOrderMenu : public QObject {
  Q_OBJECT

 public:
  /// Adds the menu for it, and shows the order that is kept.
  EntryOrderMenu(QMenu& menu, LibraryPanel& panel, ResponsiveFiles& files, KeptForms& forms);

 private:
  void Choose(EntryOrder order);

  LibraryPanel& panel_;
  ResponsiveFiles& files_;
  KeptForms& forms_;
  QActionGroup* group_;
};

}  // namespace zentab::app

#include "app/widgets/library/entry_work.h"

#include <QMenu>
#include <QMenuBar>

#include "app/widgets/library/entries_controller.h"
#include "app/widgets/library/entry_order_menu.h"
#include "app/widgets/library/entry_tips.h"
#include "app/widgets/library/library_export_controller.h"
#include "app/widgets/library/library_files_controller.h"
#include "app/widgets/library/library_panel.h"

namespace zentab::app {

EntryWork::EntryWork(const EntryParts& parts)
    : QObject(&parts.panel),
      parts_(parts),
      entries_(new EntriesController(parts, this)),
      export_(new LibraryExportController(parts, this)) {
  new EntryTips(parts.session, parts.files, parts.panel.List());
  connect(entries_, &EntriesController::CommandBegun, this, &EntryWork::CommandBegun);
  connect(entries_, &EntriesController::AboutToChange, this, &EntryWork::AboutToChange);
  connect(entries_, &EntriesController::Failed, this, &EntryWork::Failed);
  connect(export_, &LibraryExportController::CommandBegun, this, &EntryWork::CommandBegun);
  connect(export_, &LibraryExportController::AboutToChange, this, &EntryWork::AboutToChange);
  connect(export_, &LibraryExportController::Failed, this, &EntryWork::Failed);
  connect(export_, &LibraryExportController::Told, this, &EntryWork::Told);
}

QMenu* EntryWork::AddMenu(QMenuBar& bar, LibraryFilesController& tableFiles) {
  QMenu* const menu = bar.addMenu(QStringLiteral("Librar&y"));
  menu->setObjectName(QStringLiteral("m_library"));
  tableFiles.AddTo(*menu);
  menu->addSeparator();
  entries_->AddTo(*menu);
  export_->AddTo(*menu);
  menu->addSeparator();
  new EntryOrderMenu(*menu, parts_.panel, parts_.files, parts_.forms);
  entries_->AddSortTo(*menu);
  return menu;
}

}  // namespace zentab::app

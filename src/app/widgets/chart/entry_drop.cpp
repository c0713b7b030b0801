#include "app/widgets/chart/entry_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {

EntryDrop::EntryDrop(QWidget& target) : QObject(&target) {
  target.setAcceptDrops(true);
  target.installEventFilter(this);
}

bool EntryDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
    return QObject::eventFilter(watched, event);
  }
  auto* const drop = static_cast<QDropEvent*>(event);
  const std::vector<std::size_t> entries = EntriesIn(*drop->mimeData());
  if (entries.empty()) return QObject::eventFilter(watched, event);
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  if (isDrop) {
    for (const std::size_t entry : entries) Q_EMIT Dropped(entry);
  }
  return true;
}

}  // namespace zentab::app

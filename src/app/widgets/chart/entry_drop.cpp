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
  if (isDrop) Q_EMIT Dropped(entries);
  return true;
}

}  // namespace zentab::app

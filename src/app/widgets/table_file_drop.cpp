#include "app/widgets/table_file_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace zentab::app {
namespace {

// The one table file among what is dragged; empty where it is anything else.
QString FileIn(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1) return {};
  const QString file = urls.first().toLocalFile();
  return file.endsWith(QLatin1String(".dat"), Qt::CaseInsensitive) ? file : QString();
}

}  // namespace

TableFileDrop::TableFileDrop(QWidget& window) : QObject(&window) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

bool TableFileDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (!isDrop && event->type() != QEvent::DragEnter) return QObject::eventFilter(watched, event);
  auto* const drag = static_cast<QDropEvent*>(event);
  const QString file = FileIn(*drag->mimeData());
  if (file.isEmpty()) return false;
  drag->setDropAction(Qt::CopyAction);
  drag->accept();
  if (isDrop) Q_EMIT Dropped(file);
  return true;
}

}  // namespace zentab::app

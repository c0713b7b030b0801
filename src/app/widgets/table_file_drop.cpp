#include "app/widgets/table_file_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <algorithm>

namespace zentab::app {
namespace {

constexpr const char* kTableFile = ".dat";
constexpr const char* kCurveFiles[] = {".csv", ".tsv", ".json"};

bool HasEnd(const QString& file, const char* end) {
  return file.endsWith(QLatin1String(end), Qt::CaseInsensitive);
}

bool HasCurves(const QString& file) {
  return std::ranges::any_of(kCurveFiles, [&file](const char* end) { return HasEnd(file, end); });
}

// The one file of these kinds that is dragged; empty where it is anything else.
QString FileIn(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1) return {};
  const QString file = urls.first().toLocalFile();
  return HasEnd(file, kTableFile) || HasCurves(file) ? file : QString();
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
  if (isDrop && HasCurves(file)) {
    Q_EMIT CurvesDropped(file);
  } else if (isDrop) {
    Q_EMIT Dropped(file);
  }
  return true;
}

}  // namespace zentab::app

#include "app/widgets/files/held_input.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QProgressDialog>
#include <QWidget>
#include <QWindow>

namespace zentab::app {
namespace {

constexpr std::size_t kMostKeys = 1000;

bool EndsWait(QObject* watched) {
  const auto* const widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return false;
  return widget->objectName() == QLatin1String(HeldInput::kGiveUpButton) ||
         qobject_cast<QProgressDialog*>(widget->window()) != nullptr;
}

bool IsPointerInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Shortcut:
      return true;
    default:
      return false;
  }
}

}  // namespace

HeldInput::HeldInput() { QCoreApplication::instance()->installEventFilter(this); }

HeldInput::~HeldInput() {
  QCoreApplication::instance()->removeEventFilter(this);
  for (HeldKey& held : keys_) {
    if (held.window) QCoreApplication::postEvent(held.window, held.key.release());
  }
}

bool HeldInput::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride) {
    // A key comes to its window first, and from there to the widget that has the focus.
    auto* const window = qobject_cast<QWindow*>(watched);
    if (window == nullptr) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape) {
      if (type == QEvent::KeyPress) Q_EMIT EscapePressed();
    } else if (type != QEvent::ShortcutOverride && keys_.size() < kMostKeys) {
      keys_.push_back({window, std::unique_ptr<QEvent>(key->clone())});
    }
    return true;
  }
  return IsPointerInput(type) && !watched->isWindowType() && !EndsWait(watched);
}

}  // namespace zentab::app

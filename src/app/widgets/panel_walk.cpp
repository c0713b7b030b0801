#include "app/widgets/panel_walk.h"

#include <QApplication>
#include <QMenu>

namespace zentab::app {
namespace {

struct EntryRow {
  const char* name;
  const char* caption;
  QKeyCombination key;
};

constexpr std::array<EntryRow, 3> kEntries = {{
    {"m_golist", "Go to the l&ist", Qt::ALT | Qt::Key_1},
    {"m_gogrid", "Go to the &points", Qt::ALT | Qt::Key_2},
    {"m_gochart", "Go to the &chart", Qt::ALT | Qt::Key_3},
}};

// A control that is not there now, as the chart without a curve, gives its place to the first one
// of its panel that is.
bool FocusOn(const PanelWalk::Panel& panel) {
  QWidget* target = panel.control;
  if (!target->isVisible()) {
    target = nullptr;
    for (QWidget* const other : panel.panel->findChildren<QWidget*>()) {
      const bool takesFocus = (other->focusPolicy() & Qt::TabFocus) != 0;
      if (target == nullptr && takesFocus && other->isVisible() && other->isEnabled()) {
        target = other;
      }
    }
  }
  if (target == nullptr) return false;
  target->setFocus(Qt::ShortcutFocusReason);
  return true;
}

}  // namespace

PanelWalk::PanelWalk(QMenu& view, const std::array<Panel, 3>& panels)
    : QObject(&view), panels_(panels) {
  view.addSeparator();
  for (std::size_t place = 0; place < panels_.size(); ++place) {
    const EntryRow& row = kEntries[place];
    QAction* const action = view.addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    action->setShortcut(row.key);
    // A panel with nothing to go to is left alone.
    connect(action, &QAction::triggered, this,
            [this, place] { [[maybe_unused]] const bool dropped = FocusOn(panels_[place]); });
  }
  struct StepRow {
    const char* name;
    const char* caption;
    QKeyCombination key;
    int step;
  };
  for (const auto& [name, caption, key, step] :
       {StepRow{"m_panel", "&Next panel", Qt::Key_F6, 1},
        StepRow{"m_panelback", "Pre&vious panel", Qt::SHIFT | Qt::Key_F6, -1}}) {
    QAction* const action = view.addAction(QString::fromUtf8(caption));
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, way = step] { Walk(way); });
  }
}

void PanelWalk::Walk(int step) const {
  const int count = static_cast<int>(panels_.size());
  const QWidget* const focus = QApplication::focusWidget();
  // Without the focus in any panel the walk begins with the first one, or backwards the last.
  int place = step > 0 ? -1 : count;
  for (int panel = 0; panel < count; ++panel) {
    const QWidget& widget = *panels_[static_cast<std::size_t>(panel)].panel;
    if (focus != nullptr && widget.isAncestorOf(focus)) place = panel;
  }
  for (int tried = 0; tried < count; ++tried) {
    place = (place + step + count) % count;
    if (FocusOn(panels_[static_cast<std::size_t>(place)])) return;
  }
}

}  // namespace zentab::app

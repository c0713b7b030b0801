#include "app/widgets/quick_commands.h"

#include <QAction>
#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QToolButton>
#include <algorithm>

#include "app/widgets/symbolic_icon.h"

namespace zentab::app {
namespace {

struct QuickCommandRow {
  const char* action;
  const char* icon;
  bool beginsGroup;
};

constexpr QuickCommandRow kQuickCommands[] = {
    {"m_act", "open", false},     {"m_undo", "undo", true},
    {"m_redo", "redo", false},    {"m_standard", "standard", true},
    {"m_fitcurve", "fit", false}, {"m_assess", "assess", false},
    {"m_fit", "whole", true},     {"m_log", "logarithmic", false},
    {"m_preview", "print", true},
};
constexpr int kSmallest = 16;  // logical pixels of an icon
constexpr int kGroupSpace = 9;
constexpr int kPadding = 8;

}  // namespace

QuickCommands::QuickCommands(QMenuBar& bar) : QWidget(&bar) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, kGroupSpace, 0);
  row->setSpacing(1);
  for (const QuickCommandRow& command : kQuickCommands) {
    auto* const action = bar.window()->findChild<QAction*>(QLatin1String(command.action));
    if (command.beginsGroup) row->addSpacing(kGroupSpace);
    row->addWidget(AddButton(*action, QLatin1String(command.icon)));
  }
  bar.setCornerWidget(this);
  FollowFont();
}

// No higher than a line of the menu: the window keeps its height for tables and charts.
void QuickCommands::FollowFont() {
  const int side = std::max(kSmallest, fontMetrics().height());
  for (QToolButton* const button : findChildren<QToolButton*>()) {
    button->setIconSize({side, side});
    button->setFixedSize(side + kPadding, side + 2);
  }
}

void QuickCommands::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) FollowFont();
  if (event->type() != QEvent::LanguageChange) return;
  // Keys have other names.
  for (const QToolButton* const button : findChildren<QToolButton*>()) {
    Q_EMIT button->defaultAction()->changed();
  }
}

QToolButton* QuickCommands::AddButton(QAction& action, const QString& icon) {
  auto* const button = new QToolButton(this);
  button->setObjectName(QStringLiteral("Quick_") + action.objectName());
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  action.setIcon(SymbolicIcon(icon));
  action.setIconVisibleInMenu(false);
  button->setDefaultAction(&action);
  // The button follows its action, but for the key.
  const auto follow = [button, &action] {
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    const QString tip = action.toolTip();
    button->setAccessibleName(tip);
    button->setToolTip(key.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, key));
  };
  follow();
  connect(&action, &QAction::changed, button, follow);
  return button;
}

}  // namespace zentab::app

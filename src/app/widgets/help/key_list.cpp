#include "app/widgets/help/key_list.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

#include "app/widgets/accessible_names.h"

namespace zentab::app {
namespace {

QString TextOf(const QList<QKeySequence>& keys) {
  QStringList shown;
  for (const QKeySequence& key : keys) {
    if (!key.isEmpty()) shown += key.toString(QKeySequence::NativeText);
  }
  return shown.join(QLatin1String(", "));
}

void AddMenu(const QMenu& menu, const QString& way, std::vector<QStringList>& rows) {
  for (const QAction* const action : menu.actions()) {
    const QString here = way + QStringLiteral(" > ") + PlainTitle(action->text());
    if (action->menu() != nullptr) {
      AddMenu(*action->menu(), here, rows);
    } else if (const QString keys = TextOf(action->shortcuts()); !keys.isEmpty()) {
      rows.push_back({here, keys});
    }
  }
}

void AddControl(const QWidget& control, std::vector<QStringList>& rows) {
  QList<QKeySequence> keys;
  QString name = control.accessibleName();
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&control)) {
    keys += button->shortcut();
    name = PlainTitle(button->text());
  }
  for (const QShortcut* const shortcut :
       control.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
    keys += shortcut->keys();
  }
  const QString shown = TextOf(keys);
  if (!shown.isEmpty() && !name.isEmpty() && !control.isHidden()) rows.push_back({name, shown});
}

}  // namespace

std::vector<QStringList> KeysOf(const QMainWindow& form) {
  std::vector<QStringList> rows;
  for (const QAction* const action : form.menuBar()->actions()) {
    if (action->menu() != nullptr) AddMenu(*action->menu(), PlainTitle(action->text()), rows);
  }
  for (const QWidget* const control : form.centralWidget()->findChildren<QWidget*>()) {
    AddControl(*control, rows);
  }
  return rows;
}

}  // namespace zentab::app

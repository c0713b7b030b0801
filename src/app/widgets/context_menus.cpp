#include "app/widgets/context_menus.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QMenu>

#include "editor/widgets/curve_grid_view.h"

namespace zentab::app {

ContextMenus::ContextMenus(QMainWindow& form)
    : QObject(&form), form_(form), listMenu_(new QMenu(&form)) {
  listMenu_->setObjectName(QStringLiteral("m_listmenu"));
  auto* const chartMenu = new QMenu(&form);
  chartMenu->setObjectName(QStringLiteral("m_chartmenu"));
  for (const char* const name : {"m_marka", "m_markb", "m_marknone", "m_fit", "m_log"}) {
    chartMenu->addAction(form.findChild<QAction*>(QLatin1String(name)));
  }
  for (const char* const name : {"m_compare", "m_axes"}) {
    chartMenu->addAction(form.findChild<QMenu*>(QLatin1String(name))->menuAction());
  }
  Watch("List1", listMenu_);
  Watch("MSChart1", chartMenu);
  auto* const editMenu = form.findChild<QMenu*>(QStringLiteral("m_edit"));
  Watch("MSFlexGrid1", editMenu);
  Watch("Text11", editMenu);
}

void ContextMenus::Watch(const char* control, QMenu* menu) {
  auto* const widget = form_.findChild<QWidget*>(QLatin1String(control));
  menus_.insert(widget, menu);
  widget->installEventFilter(this);
  if (auto* const view = qobject_cast<QAbstractItemView*>(widget)) {
    menus_.insert(view->viewport(), menu);
    view->viewport()->installEventFilter(this);
  }
}

// The buttons of the list say what they are called and whether they can be used now.
void ContextMenus::FillListMenu() {
  listMenu_->clear();
  for (const char* const name : {"Command1", "Command4", "Command3", "Command2"}) {
    auto* const button = form_.findChild<QAbstractButton*>(QLatin1String(name));
    QAction* const action = listMenu_->addAction(button->text());
    action->setObjectName(QLatin1String("m_") + QLatin1String(name));
    action->setEnabled(button->isEnabled());
    connect(action, &QAction::triggered, button, &QAbstractButton::click);
  }
  listMenu_->addSeparator();
  for (const char* const name : {"m_rename", "m_duplicate", "m_entryup", "m_entrydown",
                                 "m_copyentries", "m_exportentries", "m_cmpentry"}) {
    listMenu_->addAction(form_.findChild<QAction*>(QLatin1String(name)));
  }
}

bool ContextMenus::Show(QWidget& control, const QContextMenuEvent& event) {
  const auto* const grid = form_.findChild<editor::CurveGridView*>(QStringLiteral("MSFlexGrid1"));
  if (grid->isAncestorOf(&control) && grid->IsEditingText()) return false;
  QMenu* const menu = menus_.value(&control);
  if (menu == listMenu_) FillListMenu();
  QPoint place = event.globalPos();
  auto* const view = qobject_cast<QAbstractItemView*>(&control);
  if (view != nullptr && event.reason() == QContextMenuEvent::Keyboard) {
    place = view->viewport()->mapToGlobal(view->visualRect(view->currentIndex()).center());
  }
  menu->popup(place);
  return true;
}

bool ContextMenus::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::ContextMenu && menus_.contains(watched) &&
         Show(*static_cast<QWidget*>(watched), *static_cast<QContextMenuEvent*>(event));
}

}  // namespace zentab::app

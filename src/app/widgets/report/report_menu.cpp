#include "app/widgets/report/report_menu.h"

#include <QAction>
#include <QMenu>

#include "app/widgets/report/report_controller.h"

namespace zentab::app {
namespace {

struct ReportCommandRow {
  const char* name;
  const char* caption;
  QKeyCombination key;
  void (ReportController::*run)();
};

constexpr ReportCommandRow kReportCommands[] = {
    {"m_copychart", "&Copy chart", Qt::CTRL | Qt::SHIFT | Qt::Key_C, &ReportController::CopyChart},
    {"m_savechart", "&Save chart as…", Qt::CTRL | Qt::SHIFT | Qt::Key_S,
     &ReportController::SaveChart},
    {"m_preview", "Print pre&view…", Qt::CTRL | Qt::SHIFT | Qt::Key_P, &ReportController::Preview},
    {"m_print", "&Print…", Qt::CTRL | Qt::Key_P, &ReportController::Print},
};

}  // namespace

ReportMenu::ReportMenu(QMenu& menu, QAction& before, ReportController& controller)
    : QObject(&menu) {
  for (const ReportCommandRow& row : kReportCommands) {
    auto* const action = new QAction(QString::fromUtf8(row.caption), &menu);
    action->setObjectName(QLatin1String(row.name));
    action->setShortcut(row.key);
    connect(action, &QAction::triggered, &controller, row.run);
    menu.insertAction(&before, action);
  }
  menu.insertSeparator(&before);
}

}  // namespace zentab::app

#include "app/widgets/interchange/interchange_commands.h"

#include <QAction>
#include <QMenu>

#include "app/widgets/interchange/comparison_controller.h"
#include "app/widgets/interchange/curve_import_controller.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/table/history_controller.h"

namespace zentab::app {

InterchangeCommands::InterchangeCommands(const InterchangeParts& parts)
    : QObject(&parts.window),
      curves_(new CurveImportController(parts)),
      comparison_(new ComparisonController(parts)) {
  const auto follow = [this](const auto* commands) {
    using Commands = std::remove_cvref_t<decltype(*commands)>;
    connect(commands, &Commands::CommandBegun, this, &InterchangeCommands::GridNeeded);
    connect(commands, &Commands::AboutToChange, this, &InterchangeCommands::AboutToChange);
    connect(commands, &Commands::Told, this, &InterchangeCommands::Told);
  };
  follow(curves_);
  follow(comparison_);
  connect(curves_, &CurveImportController::TableTaken, &parts.history,
          &HistoryController::ShowTable);
  connect(curves_, &CurveImportController::EntriesAdded, &parts.library,
          &LibraryController::ShowAddedEntries);
}

void InterchangeCommands::AddTo(QMenu& menu) {
  menu.addSeparator();
  const auto add = [&menu](const char* name, const QString& caption) {
    QAction* const action = menu.addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
  };
  connect(add("m_impcurves", QStringLiteral("&Import curves…")), &QAction::triggered, curves_,
          &CurveImportController::Import);
  connect(add("m_pastecurves", QStringLiteral("P&aste curves…")), &QAction::triggered, curves_,
          &CurveImportController::Paste);
  connect(add("m_cmplibrary", QStringLiteral("Co&mpare with…")), &QAction::triggered, comparison_,
          &ComparisonController::CompareWith);
}

void InterchangeCommands::ImportFrom(const QString& file) { curves_->ImportFrom(file); }

}  // namespace zentab::app

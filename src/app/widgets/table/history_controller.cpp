#include "app/widgets/table/history_controller.h"

#include <QAction>
#include <QMenu>

#include "app/session_texts.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/status_line.h"
#include "app/widgets/table/table_panel.h"
#include "app/widgets/table/value_mode_binding.h"
#include "app/widgets/testset/instrument_controller.h"

namespace zentab::app {
namespace {

static_assert(static_cast<std::size_t>(editor::EditStep::BringBack) + 1 == texts::kEditSteps);

QString Caption(const Session& session, const std::string& text,
                std::optional<editor::EditStep> step) {
  const std::string name =
      step ? session.texts.history.steps[static_cast<std::size_t>(*step)] : std::string();
  return QString::fromStdString(Expanded(session, text, {name})).trimmed();
}

// Those of the program first, as the menu shows them, then the system's.
QList<QKeySequence> Keys(std::initializer_list<QKeyCombination> own,
                         QKeySequence::StandardKey standard) {
  QList<QKeySequence> keys;
  for (const QKeyCombination key : own) keys.append(QKeySequence(key));
  for (const QKeySequence& key : QKeySequence::keyBindings(standard)) {
    if (!keys.contains(key)) keys.append(key);
  }
  return keys;
}

}  // namespace

HistoryController::HistoryController(Parts parts) : QObject(&parts.table), parts_(parts) {}

void HistoryController::AddTo(QMenu& menu) {
  auto* const undo = new QAction(&menu);
  auto* const redo = new QAction(&menu);
  undo_ = undo;
  redo_ = redo;
  undo_->setObjectName(QStringLiteral("m_undo"));
  redo_->setObjectName(QStringLiteral("m_redo"));
  undo_->setShortcuts(Keys({Qt::CTRL | Qt::Key_Z}, QKeySequence::Undo));
  redo_->setShortcuts(
      Keys({Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z}, QKeySequence::Redo));
  connect(undo_, &QAction::triggered, this, &HistoryController::Undo);
  connect(redo_, &QAction::triggered, this, &HistoryController::Redo);
  menu.insertActions(menu.actions().value(0), {undo_, redo_});
  connect(&menu, &QMenu::aboutToShow, this, &HistoryController::NameSteps);
  connect(&menu, &QMenu::aboutToHide, this, &HistoryController::RefreshTexts);
  RefreshTexts();
}

// Keys and buttons look for a step themselves.
void HistoryController::RefreshTexts() {
  const texts::HistoryTexts& texts = parts_.session.texts.history;
  undo_->setText(Caption(parts_.session, texts.undo, std::nullopt));
  redo_->setText(Caption(parts_.session, texts.redo, std::nullopt));
  undo_->setEnabled(true);
  redo_->setEnabled(true);
}

void HistoryController::NameSteps() {
  const texts::HistoryTexts& texts = parts_.session.texts.history;
  const std::optional<editor::EditStep> done = parts_.history.UndoStep();
  const std::optional<editor::EditStep> undone = parts_.history.RedoStep();
  undo_->setText(Caption(parts_.session, texts.undo, done));
  undo_->setEnabled(done.has_value());
  redo_->setText(Caption(parts_.session, texts.redo, undone));
  redo_->setEnabled(undone.has_value());
}

void HistoryController::Undo() { Go(&SessionHistory::Undo); }

void HistoryController::Redo() { Go(&SessionHistory::Redo); }

void HistoryController::Go(HistoryOutcome (SessionHistory::*step)()) {
  // A module is just at work, or a file.
  if (!parts_.table.window()->isEnabled() || parts_.files.IsAtWork()) return;
  const bool undoes = step == &SessionHistory::Undo;
  if (!(undoes ? parts_.history.UndoStep() : parts_.history.RedoStep())) return;
  Q_EMIT CommandBegun();
  // What is typed next belongs into a cell, as before.
  const bool reopens = parts_.table.grid->IsCellOpen();
  parts_.table.grid->CloseEditor();
  const tables::EntryMark selected = parts_.library.SelectedMark();
  HistoryOutcome outcome;
  {
    const ResponsiveFiles::Work work(parts_.files);
    outcome = (parts_.history.*step)();
    if (outcome.changedLibrary) parts_.library.ShowChanged(outcome.entry.value_or(selected));
  }
  if (outcome.error) {
    Q_EMIT Failed(parts_.library.WriteFailureText(outcome.error));
  } else {
    ShowTable();
  }
  if (reopens) parts_.table.grid->GridEdit(editor::kOpenWithText);
}

void HistoryController::ShowTable() {
  // The choice of an instrument shows its module's pickup value.
  const editor::ValueModes modes = parts_.session.modes;
  parts_.instruments.FollowSession();
  parts_.session.modes = modes;
  parts_.modes.Show();
  parts_.table.grid->ShowCurrentCell();
  Q_EMIT TableShown();
}

}  // namespace zentab::app

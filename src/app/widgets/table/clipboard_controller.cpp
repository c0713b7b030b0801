#include "app/widgets/table/clipboard_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "app/widgets/table/table_panel.h"
#include "editor/clipboard_text.h"

namespace zentab::app {
namespace {

std::string ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

}  // namespace

ClipboardController::ClipboardController(Session& session, TablePanel& panel)
    : QObject(&panel),
      session_(session),
      panel_(panel),
      text11_(panel.grid->findChild<QLineEdit*>(QStringLiteral("Text11"))) {
  connect(panel.command7, &QPushButton::clicked, this, &ClipboardController::Import);
  connect(panel.command8, &QPushButton::clicked, this, &ClipboardController::Export);
  connect(panel.command9, &QPushButton::clicked, this, &ClipboardController::Clear);
  panel.grid->installEventFilter(this);
  text11_->installEventFilter(this);
}

void ClipboardController::Export() const {
  const std::string text = editor::BlockText(session_.table.grid, panel_.grid->SelectedArea());
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void ClipboardController::Import() {
  panel_.grid->CloseEditor();
  editor::PasteText(session_.table, panel_.grid->SelectedArea(), ClipboardText(),
                    session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

void ClipboardController::Clear() {
  panel_.grid->CloseEditor();
  editor::ClearArea(session_.table, panel_.grid->SelectedArea(), session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

ClipboardController::Command ClipboardController::CommandFor(const QKeyEvent& event,
                                                             bool inEditor) const {
  const bool inText = inEditor && !panel_.grid->IsOnlyOpened();
  if (event.matches(QKeySequence::Paste)) {
    const bool oneRow = inText && !editor::HasSeveralRows(ClipboardText());
    return oneRow ? Command::PasteRow : Command::Import;
  }
  if (inText) return Command::None;
  if (event.matches(QKeySequence::Copy)) return Command::Export;
  if (event.matches(QKeySequence::Cut)) return Command::Cut;
  return event.matches(QKeySequence::Delete) ? Command::Clear : Command::None;
}

// Several rows fill more than the open cell; of an export it notices nothing.
bool ClipboardController::ReopensCell(Command command) const {
  if (command == Command::Export || !panel_.grid->IsOnlyOpened()) return false;
  return command != Command::Import || !editor::HasSeveralRows(ClipboardText());
}

void ClipboardController::Run(Command command) {
  const bool reopens = ReopensCell(command);
  if (command == Command::Export || command == Command::Cut) Export();
  if (command == Command::Clear || command == Command::Cut) Clear();
  if (command == Command::Import) Import();
  if (command == Command::PasteRow) PasteRow();
  // What is typed next belongs into the cell; the grid itself would not take it.
  if (reopens) panel_.grid->GridEdit(editor::kOpenWithText);
}

void ClipboardController::PasteRow() {
  const std::string text = ClipboardText();
  if (text.empty()) return;
  const std::string_view row = editor::FirstRow(text);
  text11_->insert(QString::fromUtf8(row.data(), static_cast<qsizetype>(row.size())));
}

bool ClipboardController::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  const Command command = CommandFor(*static_cast<QKeyEvent*>(event), watched == text11_);
  if (command == Command::None) return false;
  // The keys are the grid's even where a menu or a button uses them.
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
  } else {
    Run(command);
  }
  return true;
}

}  // namespace zentab::app

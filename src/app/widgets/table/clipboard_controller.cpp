#include "app/widgets/table/clipboard_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>

#include "app/widgets/table/table_panel.h"
#include "editor/clipboard_text.h"

namespace zentab::app {
namespace {

std::string ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

QString Shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

using editor::CellCommand;
using editor::EditStep;

ClipboardController::ClipboardController(Session& session, TablePanel& panel)
    : QObject(&panel), session_(session), panel_(panel) {
  connect(panel.command7, &QPushButton::clicked, this, &ClipboardController::Import);
  connect(panel.command8, &QPushButton::clicked, this, &ClipboardController::Export);
  connect(panel.command9, &QPushButton::clicked, this, &ClipboardController::Clear);
  connect(panel.grid, &editor::CurveGridView::CommandWanted, this, &ClipboardController::Run);
}

void ClipboardController::Export() const {
  const std::string text = editor::BlockText(session_.table.grid, panel_.grid->SelectedArea());
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void ClipboardController::Import() {
  panel_.grid->CloseEditor();
  Q_EMIT AboutToChange(EditStep::Paste);
  editor::PasteText(session_.table, panel_.grid->SelectedArea(), ClipboardText(),
                    session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

void ClipboardController::Clear() { ClearArea(EditStep::Clear); }

void ClipboardController::ClearArea(EditStep step) {
  panel_.grid->CloseEditor();
  Q_EMIT AboutToChange(step);
  editor::ClearArea(session_.table, panel_.grid->SelectedArea(), session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

void ClipboardController::Run(CellCommand command) {
  if (command == CellCommand::Copy || command == CellCommand::Cut) Export();
  if (command == CellCommand::Copy) return;
  if (panel_.grid->IsCellOpen()) {
    RunOnOpenCell(command);
  } else if (command == CellCommand::Paste) {
    Import();
  } else {
    ClearArea(command == CellCommand::Cut ? EditStep::Cut : EditStep::Clear);
  }
}

void ClipboardController::RunOnOpenCell(CellCommand command) {
  if (command != CellCommand::Paste) {
    panel_.grid->ReplaceText({}, command == CellCommand::Cut ? EditStep::Cut : EditStep::Clear);
    return;
  }
  const std::string text = ClipboardText();
  if (text.empty()) return;
  if (panel_.grid->IsEditingText()) {
    PasteIntoText(text);
  } else if (editor::IsOneValue(text)) {
    panel_.grid->ReplaceText(Shown(editor::FirstRow(text)), EditStep::Paste);
  } else {
    // Several rows fill more than the open cell.
    const bool reopens = !editor::HasSeveralRows(text);
    Import();
    if (reopens) panel_.grid->GridEdit(editor::kOpenWithText);
  }
}

void ClipboardController::PasteIntoText(const std::string& text) {
  panel_.grid->InsertIntoText(Shown(editor::FirstRow(text)));
  const std::string_view below = editor::RowsBelowFirst(text);
  if (below.empty()) return;
  panel_.grid->CloseEditor();
  Q_EMIT AboutToChange(EditStep::Paste);
  const editor::CurveGrid& grid = session_.table.grid;
  editor::PasteText(session_.table, {grid.Row() + 1, grid.Col(), grid.Row() + 1, grid.Col()}, below,
                    session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

}  // namespace zentab::app

#include "app/widgets/table/clipboard_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>

#include "app/widgets/table/table_panel.h"
#include "editor/clipboard_text.h"

namespace zentab::app {
namespace {

std::string ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

}  // namespace

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
  editor::PasteText(session_.table, panel_.grid->SelectedArea(), ClipboardText(),
                    session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

void ClipboardController::Clear() {
  panel_.grid->CloseEditor();
  editor::ClearArea(session_.table, panel_.grid->SelectedArea(), session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

void ClipboardController::Run(editor::CellCommand command) {
  using editor::CellCommand;
  if (command == CellCommand::Copy || command == CellCommand::Cut) Export();
  if (command == CellCommand::Copy) return;
  const bool severalRows = editor::HasSeveralRows(ClipboardText());
  const bool pasting = command == CellCommand::Paste;
  if (pasting && panel_.grid->IsEditingText()) {
    PasteIntoText();
    return;
  }
  // What is typed next belongs into the cell; the grid itself would not take it. Several rows fill
  // more than the open cell.
  const bool reopens = panel_.grid->IsCellOpen() && !(pasting && severalRows);
  if (pasting) {
    Import();
  } else {
    Clear();
  }
  if (reopens) panel_.grid->GridEdit(editor::kOpenWithText);
}

void ClipboardController::PasteIntoText() {
  const std::string text = ClipboardText();
  if (text.empty()) return;
  const std::string_view row = editor::FirstRow(text);
  panel_.grid->InsertIntoText(QString::fromUtf8(row.data(), static_cast<qsizetype>(row.size())));
  const std::string_view below = editor::RowsBelowFirst(text);
  if (below.empty()) return;
  panel_.grid->CloseEditor();
  const editor::CurveGrid& grid = session_.table.grid;
  editor::PasteText(session_.table, {grid.Row() + 1, grid.Col(), grid.Row() + 1, grid.Col()}, below,
                    session_.localeDecimalSeparator);
  Q_EMIT TableChanged();
}

}  // namespace zentab::app

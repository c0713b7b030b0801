#include "editor/widgets/curve_grid_view.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "editor/widgets/cell_field.h"
#include "editor/widgets/curve_grid_model.h"
#include "editor/widgets/fault_marks.h"
#include "editor/widgets/field_undo.h"

namespace zentab::editor {
namespace {

struct KeyRow {
  int key;
  EditorKey code;
};

constexpr std::array<KeyRow, 7> kKeys = {{
    {Qt::Key_Return, EditorKey::Enter},
    {Qt::Key_Enter, EditorKey::Enter},
    {Qt::Key_Escape, EditorKey::Escape},
    {Qt::Key_Left, EditorKey::Left},
    {Qt::Key_Up, EditorKey::Up},
    {Qt::Key_Right, EditorKey::Right},
    {Qt::Key_Down, EditorKey::Down},
}};

// With Shift, Ctrl or Alt the keys keep the meaning they have in every text field.
std::optional<EditorKey> EditorKeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  for (const KeyRow& row : kKeys) {
    if (row.key == event.key()) return row.code;
  }
  return std::nullopt;
}

// Keys that select cells, in the grid and in a spreadsheet.
bool SelectsCells(const QKeyEvent& event) {
  const bool arrow = event.key() >= Qt::Key_Left && event.key() <= Qt::Key_Down;
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  return event.matches(QKeySequence::SelectAll) || (arrow && modifiers == Qt::ShiftModifier);
}

bool IsEnter(const QKeyEvent& event) { return EditorKeyOf(event) == EditorKey::Enter; }

struct CommandRow {
  QKeySequence::StandardKey key;
  CellCommand command;
};

// As in a spreadsheet.
constexpr std::array<CommandRow, 4> kCommands = {{
    {QKeySequence::Copy, CellCommand::Copy},
    {QKeySequence::Cut, CellCommand::Cut},
    {QKeySequence::Paste, CellCommand::Paste},
    {QKeySequence::Delete, CellCommand::Clear},
}};

// The place behind the first `length` characters of a text, in bytes of its UTF-8.
std::size_t BytesOf(const QString& text, int length) {
  return text.left(length).toStdString().size();
}

}  // namespace

CurveGridView::CurveGridView(WorkingTable& table, QWidget* parent)
    : QTableView(parent),
      table_(table),
      cellEditor_(table),
      model_(new CurveGridModel(table.grid, this)),
      text11_(new CellField(viewport())) {
  setObjectName(QStringLiteral("MSFlexGrid1"));
  setModel(model_);
  setItemDelegate(new FaultMarks(this));
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setCornerButtonEnabled(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  FitRows();
  setCurrentIndex(model_->index(0, 0));

  text11_->installEventFilter(this);
  connect(text11_, &QLineEdit::textChanged, this, &CurveGridView::OnTextChanged);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &CurveGridView::PlaceEditor);
  for (QHeaderView* const header : {horizontalHeader(), verticalHeader()}) {
    connect(header, &QHeaderView::sectionPressed, this, &CurveGridView::OnHeaderPressed);
  }
}

void CurveGridView::GridEdit(int keyAscii) {
  const bool replaces = keyAscii < 0 || keyAscii > kOpenWithText;
  isEdited_ = false;
  // The cell is seen before anything goes into it.
  scrollTo(currentIndex());
  if (replaces) BeginEdit(EditStep::Typing);
  cellEditor_.GridEdit(keyAscii);
  text11_->setFont(font());
  {
    const QSignalBlocker own(text11_);
    text11_->setText(QString::fromStdString(cellEditor_.Text()));
  }
  text11_->setCursorPosition(cellEditor_.Caret());
  text11_->setAccessibleName(model_->FieldName(table_.grid.Row(), table_.grid.Col()));
  // One cell is being edited, whatever was selected before.
  selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
  text11_->show();
  PlaceEditor();
  text11_->setFocus();
  if (replaces) {
    model_->ShowCell(table_.grid.Row(), table_.grid.Col());
    Q_EMIT Edited();
  }
}

void CurveGridView::CloseEditor() {
  if (!cellEditor_.IsVisible()) return;
  cellEditor_.Hide();
  // Hiding the field would pass its focus to whatever control comes next.
  if (text11_->hasFocus()) setFocus();
  text11_->hide();
  Q_EMIT EditingLeft();
}

void CurveGridView::ShowAll() { model_->ShowAll(); }

void CurveGridView::SetWords(const texts::PointTexts& words) { model_->SetWords(words); }

void CurveGridView::ShowFaults(std::vector<CellFault> faults) {
  model_->ShowFaults(std::move(faults));
}

bool CurveGridView::IsCellOpen() const { return cellEditor_.IsVisible(); }

bool CurveGridView::IsEditingText() const {
  return cellEditor_.IsVisible() && (text11_->isModified() || text11_->hasSelectedText() ||
                                     text11_->cursorPosition() != text11_->text().size());
}

void CurveGridView::InsertIntoText(const QString& text) {
  if (cellEditor_.IsVisible()) text11_->insert(text);
}

void CurveGridView::ReplaceText(const QString& text, EditStep step) {
  if (!cellEditor_.IsVisible()) return;
  BeginEdit(step);
  text11_->selectAll();
  text11_->insert(text);
}

void CurveGridView::ShowCurrentCell() {
  setCurrentIndex(model_->index(table_.grid.Row() - kFirstRow, table_.grid.Col() - kLoadColumn));
}

// All that is done to an open cell until it is left is one step.
void CurveGridView::BeginEdit(EditStep step) {
  if (!std::exchange(isEdited_, true)) Q_EMIT EditBegins(step);
}

CellArea CurveGridView::SelectedArea() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) {
    return {table_.grid.Row(), table_.grid.Col(), table_.grid.Row(), table_.grid.Col()};
  }
  // The view selects contiguous cells only: one range.
  const QItemSelectionRange& range = selection.first();
  return {range.top() + kFirstRow, range.left() + kLoadColumn, range.bottom() + kFirstRow,
          range.right() + kLoadColumn};
}

void CurveGridView::OnTextChanged(const QString& text) {
  BeginEdit(EditStep::Typing);
  const int caret = text11_->cursorPosition();
  cellEditor_.ChangeText(text.toStdString(), BytesOf(text, caret));
  const QString kept = QString::fromStdString(cellEditor_.Text());
  if (kept != text) {
    static const QRegularExpression separator(QStringLiteral("[\\r\\n\\t]"));
    const QSignalBlocker own(text11_);
    text11_->setText(kept);
    const int end = static_cast<int>(text.indexOf(separator));
    text11_->setCursorPosition(end < 0 ? caret : std::min(caret, end));
    // Still the user's edit, though the field takes a text that it was given for untouched.
    text11_->setModified(true);
  }
  model_->ShowCell(table_.grid.Row(), table_.grid.Col());
  model_->ShowCell(table_.grid.Row(), table_.grid.Col() + 1);
  if (!text11_->isUndoAvailable()) Q_EMIT TypingUndone();
  Q_EMIT Edited();
}

// These keys are the grid's even where a menu or a button uses them.
bool CurveGridView::KeepsKey(const QKeyEvent& event) const {
  return CommandFor(event) || (IsCellOpen() && EditorKeyOf(event));
}

// The keys of the open cell, and those that mean the same without one, in the order of their claim.
bool CurveGridView::OnKey(QKeyEvent* event) {
  if (IsCellOpen() && (OnEditorKey(*event) || OnSelectingKey(event))) return true;
  const std::optional<CellCommand> command = CommandFor(*event);
  if (command) Q_EMIT CommandWanted(*command);
  return command.has_value();
}

std::optional<CellCommand> CurveGridView::CommandFor(const QKeyEvent& event) const {
  const auto* const row = std::find_if(kCommands.begin(), kCommands.end(),
                                       [&](const CommandRow& r) { return event.matches(r.key); });
  if (row == kCommands.end()) return std::nullopt;
  // On a text that is being edited they work as in every text field; what is pasted may be rows.
  if (IsEditingText() && row->command != CellCommand::Paste) return std::nullopt;
  return row->command;
}

bool CurveGridView::OnEditorKey(const QKeyEvent& event) {
  const std::optional<EditorKey> key = EditorKeyOf(event);
  if (!key) return false;
  const EditorMove move = CellEditor::MoveFor(*key, table_.grid.Row(), table_.grid.Col());
  if (move.focusGridFirst) {
    setFocus();
    // The focus does not move in a window that is not active.
    CloseEditor();
  }
  if (move.reopen) {
    setCurrentIndex(model_->index(move.row - kFirstRow, move.column - kLoadColumn));
    GridEdit(kOpenWithText);
  }
  return true;
}

bool CurveGridView::OnSelectingKey(QKeyEvent* event) {
  if (!SelectsCells(*event) || IsEditingText()) return false;
  CloseEditor();
  keyPressEvent(event);
  return true;
}

// The editor lies over the cell where a drag would begin, since the click before has opened it.
bool CurveGridView::OnDragOutOfEditor(const QMouseEvent& event) {
  if ((event.buttons() & Qt::LeftButton) == 0 || text11_->rect().contains(event.pos())) {
    return false;
  }
  pressed_ = currentIndex();
  CloseEditor();
  // Dragging goes on from here as if it had begun on the cell itself.
  const QPointF begin = visualRect(pressed_).center();
  QMouseEvent press(QEvent::MouseButtonPress, begin, viewport()->mapToGlobal(begin), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QTableView::mousePressEvent(&press);
  // The button went down on the field, which is gone: nobody else would hear of the mouse.
  viewport()->grabMouse();
  return true;
}

// A header takes no focus: the keys would stay with the editor, or with another control.
void CurveGridView::OnHeaderPressed() {
  CloseEditor();
  setFocus();
}

void CurveGridView::PlaceEditor() {
  if (cellEditor_.IsVisible()) text11_->setGeometry(visualRect(currentIndex()));
}

// The table view itself would draw all of its cells anew whenever the focus comes or goes, which
// it does twice for every cell that is left with Enter. Only the selected ones look different.
void CurveGridView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call) as said
  viewport()->update(visualRegionForSelection(selectionModel()->selection()));
}

void CurveGridView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);  // NOLINT(bugprone-parent-virtual-call) as said
  viewport()->update(visualRegionForSelection(selectionModel()->selection()));
}

void CurveGridView::FitRows() {
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
}

void CurveGridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitRows();
}

void CurveGridView::updateGeometries() {
  QTableView::updateGeometries();
  PlaceEditor();
}

bool CurveGridView::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || !KeepsKey(*static_cast<QKeyEvent*>(event))) {
    return QTableView::event(event);
  }
  event->accept();
  return true;
}

bool CurveGridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != text11_) return QTableView::eventFilter(watched, event);
  if (TakesUndoKey(*text11_, *event)) return true;
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (KeepsKey(*static_cast<QKeyEvent*>(event))) event->accept();
      return false;
    case QEvent::KeyPress:
      return OnKey(static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
      doubleClicked_ = false;
      return false;
    case QEvent::MouseButtonDblClick:
      // The click before has opened the cell; this one, or the hand that trembles after it, would
      // select a part of its number.
      doubleClicked_ = true;
      GridEdit(kOpenWithText);
      return true;
    case QEvent::MouseMove:
      return OnDragOutOfEditor(*static_cast<QMouseEvent*>(event)) || doubleClicked_;
    case QEvent::FocusOut: {
      // Another program or the field's own menu in front does not end the editing.
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) CloseEditor();
      return false;
    }
    default:
      return false;
  }
}

void CurveGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!current.isValid()) return;
  table_.grid.MoveTo(current.row() + kFirstRow, current.column() + kLoadColumn);
  if (current.row() != previous.row()) Q_EMIT RowChanged(table_.grid.Row());
}

void CurveGridView::mousePressEvent(QMouseEvent* event) {
  pressed_ = indexAt(event->pos());
  CloseEditor();
  QTableView::mousePressEvent(event);
}

void CurveGridView::mouseReleaseEvent(QMouseEvent* event) {
  viewport()->releaseMouse();
  QTableView::mouseReleaseEvent(event);
  const QModelIndex released = indexAt(event->pos());
  // A drag or a click with a modifier selects cells; a plain click edits one.
  if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier &&
      released.isValid() && released == pressed_) {
    GridEdit(kOpenWithText);
  }
}

void CurveGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) {
    setCurrentIndex(indexAt(event->pos()));
    GridEdit(kOpenWithText);
  }
}

void CurveGridView::keyPressEvent(QKeyEvent* event) {
  // What the open field has no use for (Page Down, Ctrl+Down) comes up to here, and would move the
  // current cell away from under it: the next character would overwrite another cell.
  if (cellEditor_.IsVisible()) {
    event->ignore();
    return;
  }
  if (IsEnter(*event) || event->key() == Qt::Key_F2) {
    GridEdit(kOpenWithText);
    return;
  }
  if (OnKey(event)) return;
  QTableView::keyPressEvent(event);
}

}  // namespace zentab::editor

#include "app/widgets/library/entry_list_view.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {
namespace {

constexpr int kNowhere = -1;

struct KeyRow {
  QKeyCombination key;
  void (*command)(EntryListView&);
};

constexpr KeyRow kListKeys[] = {
    {Qt::CTRL | Qt::Key_D, [](EntryListView& list) { Q_EMIT list.DuplicateWanted(); }},
    {Qt::ALT | Qt::Key_Up, [](EntryListView& list) { Q_EMIT list.MoveWanted(-1); }},
    {Qt::ALT | Qt::Key_Down, [](EntryListView& list) { Q_EMIT list.MoveWanted(1); }},
};

const KeyRow* KeyRowOf(const QKeyEvent& event) {
  // The arrows of the number pad are arrows, too.
  const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
  const KeyRow* const row = std::ranges::find_if(
      kListKeys, [pressed](const KeyRow& each) { return each.key == pressed; });
  return row == std::end(kListKeys) ? nullptr : row;
}

}  // namespace

EntryListView::EntryListView(QWidget* parent) : QListView(parent) {
  setItemDelegate(new RoomyRows(this));
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideRight);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::EditKeyPressed);
  setDragDropMode(QAbstractItemView::DragDrop);
  setDropIndicatorShown(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void EntryListView::Rename() {
  if (!currentIndex().isValid()) return;
  setFocus();
  scrollTo(currentIndex());
  edit(currentIndex());
}

int EntryListView::ChosenCount() const {
  int count = 0;
  for (const QItemSelectionRange& range : selectionModel()->selection()) count += range.height();
  return count;
}

bool EntryListView::event(QEvent* event) {
  // Some of the keys are those of another panel's commands elsewhere in the window.
  if (event->type() == QEvent::ShortcutOverride && state() != EditingState &&
      KeyRowOf(*static_cast<QKeyEvent*>(event)) != nullptr) {
    event->accept();
    return true;
  }
  return QListView::event(event);
}

void EntryListView::keyPressEvent(QKeyEvent* event) {
  if (const KeyRow* const row = KeyRowOf(*event)) {
    row->command(*this);
    event->accept();
  } else if (event->matches(QKeySequence::Copy) && ChosenCount() > 1) {
    CopyNames();
    event->accept();
  } else {
    QListView::keyPressEvent(event);
  }
}

void EntryListView::CopyNames() const {
  QModelIndexList chosen = selectionModel()->selectedRows();
  std::ranges::sort(chosen, {}, &QModelIndex::row);
  QString names;
  for (const QModelIndex& index : chosen) names += index.data().toString() + '\n';
  QGuiApplication::clipboard()->setText(names);
}

// A click below the last entry leaves the choice as it is. What a command selects it selects alone,
// whatever keys are still held down.
QItemSelectionModel::SelectionFlags EntryListView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* event) const {
  if (event == nullptr) return QItemSelectionModel::ClearAndSelect;
  if (!index.isValid()) return QItemSelectionModel::NoUpdate;
  return QListView::selectionCommand(index, event);
}

bool EntryListView::IsOwnDrag(const QDropEvent& event) const {
  const auto* const entries = qobject_cast<const EntryListModel*>(model());
  return entries != nullptr && entries->IsWholeFile() && !EntriesIn(*event.mimeData()).empty();
}

void EntryListView::ShowDropPlace(int row) {
  if (std::exchange(dropRow_, row) != row) viewport()->update();
}

int EntryListView::DropRow() const {
  const QModelIndex index = indexAt(dragged_);
  if (!index.isValid()) return model()->rowCount();
  return index.row() + (dragged_.y() > visualRect(index).center().y() ? 1 : 0);
}

void EntryListView::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  // The rows move below a mouse that stands still.
  if (dropRow_ != kNowhere) ShowDropPlace(DropRow());
}

void EntryListView::dragEnterEvent(QDragEnterEvent* event) {
  // Files are for the window.
  if (!IsOwnDrag(*event)) return event->ignore();
  setState(DraggingState);
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void EntryListView::dragMoveEvent(QDragMoveEvent* event) {
  if (!IsOwnDrag(*event)) return event->ignore();
  // It scrolls at the edges.
  QListView::dragMoveEvent(event);
  dragged_ = event->position().toPoint();
  ShowDropPlace(DropRow());
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void EntryListView::dragLeaveEvent(QDragLeaveEvent* event) {
  QListView::dragLeaveEvent(event);
  ShowDropPlace(kNowhere);
}

void EntryListView::dropEvent(QDropEvent* event) {
  stopAutoScroll();
  setState(NoState);
  const int row = dropRow_;
  ShowDropPlace(kNowhere);
  if (!IsOwnDrag(*event) || row == kNowhere) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Q_EMIT MovedTo(row);
}

void EntryListView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (dropRow_ == kNowhere || model()->rowCount() == 0) return;
  const int last = model()->rowCount() - 1;
  const QRect row = visualRect(model()->index(std::min(dropRow_, last), 0));
  const int line = dropRow_ > last ? row.bottom() : row.top();
  QPainter painter(viewport());
  constexpr int kThickness = 2;
  painter.fillRect(QRect(0, std::max(0, line - 1), viewport()->width(), kThickness),
                   palette().color(QPalette::Highlight));
}

}  // namespace zentab::app

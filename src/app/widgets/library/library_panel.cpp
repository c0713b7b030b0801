#include "app/widgets/library/library_panel.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <algorithm>
#include <limits>

#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/entry_list_view.h"
#include "app/widgets/library/entry_rows.h"

namespace zentab::app {
namespace {

// A button's own shortcut is the letter underlined in its caption; setting another would take that
// one away.
void AddShortcut(QPushButton* button, const QKeySequence& key) {
  auto* const shortcut = new QShortcut(key, button);
  QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
}

}  // namespace

LibraryPanel::LibraryPanel(const tables::TableListing& listing, QWidget* parent)
    : QWidget(parent),
      model_(new EntryListModel(listing, this)),
      label1_(new QLabel(QStringLiteral("Curve &tables"), this)),
      filter_(new QLineEdit(this)),
      list1_(new EntryListView(this)),
      places_(new QStackedWidget(this)) {
  label1_->setObjectName(QStringLiteral("Label1"));
  label1_->setBuddy(list1_);
  BuildList();
  BuildFilter();
  BuildButtons();
  BuildNameBox();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label1_);
  layout->addWidget(filter_);
  layout->addWidget(list1_, 1);
  layout->addWidget(places_);
  RefreshButtons();
  SetStorable(false);
}

void LibraryPanel::BuildList() {
  list1_->setObjectName(QStringLiteral("List1"));
  list1_->setModel(model_);
  list1_->setItemDelegate(new EntryRows(list1_));
  list1_->setToolTip(QStringLiteral("The curve tables of the active table file"));
  connect(list1_, &QListView::activated, this, &LibraryPanel::ReadWanted);
  auto* const remove = new QShortcut(QKeySequence(Qt::Key_Delete), list1_);
  remove->setContext(Qt::WidgetShortcut);
  connect(remove, &QShortcut::activated, this, &LibraryPanel::RemoveWanted);
  // The field of the name closes before its entry is renamed.
  connect(model_, &EntryListModel::NameTyped, this, &LibraryPanel::RenameWanted,
          Qt::QueuedConnection);
  // So does a drag.
  const auto moveTo = [this](int row) {
    Q_EMIT MoveToWanted(row < model_->rowCount() ? model_->EntryOf(row) : tables::kNoLine);
  };
  connect(list1_, &EntryListView::MovedTo, this, moveTo, Qt::QueuedConnection);
}

QPushButton* LibraryPanel::AddButton(QGridLayout* layout, int place, const char* name,
                                     const QString& caption, const QString& tip) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(tip);
  layout->addWidget(button, place / 2, place % 2);
  return button;
}

void LibraryPanel::BuildFilter() {
  filter_->setObjectName(QStringLiteral("TextFilter"));
  filter_->setPlaceholderText(QStringLiteral("Find a name (Ctrl+F)"));
  filter_->setToolTip(QStringLiteral("Lists only the tables whose names contain this text"));
  filter_->setClearButtonEnabled(true);
  connect(filter_, &QLineEdit::textChanged, this, &LibraryPanel::FilterWanted);
  connect(filter_, &QLineEdit::returnPressed, list1_, [this] { list1_->setFocus(); });
  auto* const find = new QShortcut(QKeySequence::Find, filter_);
  connect(find, &QShortcut::activated, filter_, [this] {
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
  });
  const auto inFilter = [this](Qt::Key key, auto work) {
    auto* const shortcut = new QShortcut(key, filter_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, filter_, work);
  };
  inFilter(Qt::Key_Escape, [this] {
    filter_->clear();
    list1_->setFocus();
  });
  inFilter(Qt::Key_Down, [this] { list1_->setFocus(); });
}

void LibraryPanel::BuildButtons() {
  auto* const page = new QWidget(this);
  auto* const grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  command1_ = AddButton(grid, 0, "Command1", QStringLiteral("&Read"),
                        QStringLiteral("Read the selected entry into the grid (Enter, Ctrl+R)"));
  command4_ =
      AddButton(grid, 1, "Command4", QStringLiteral("&Update"),
                QStringLiteral("Replace the selected entry with the table in the grid (Ctrl+S)"));
  command3_ = AddButton(grid, 2, "Command3", QStringLiteral("&Add New"),
                        QStringLiteral("Store the table in the grid under a new name (Ctrl+N)"));
  command2_ = AddButton(grid, 3, "Command2", QStringLiteral("Re&move"),
                        QStringLiteral("Remove the selected entry from the table file (Delete)"));
  AddShortcut(command1_, QKeySequence(Qt::CTRL | Qt::Key_R));
  AddShortcut(command4_, QKeySequence::Save);
  AddShortcut(command3_, QKeySequence::New);
  connect(command1_, &QPushButton::clicked, this, &LibraryPanel::ReadWanted);
  connect(command2_, &QPushButton::clicked, this, &LibraryPanel::RemoveWanted);
  connect(command3_, &QPushButton::clicked, this, &LibraryPanel::AddNewWanted);
  connect(command4_, &QPushButton::clicked, this, &LibraryPanel::UpdateWanted);
  places_->addWidget(page);
  places_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void LibraryPanel::BuildNameBox() {
  auto* const page = new QWidget(this);
  auto* const column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  text1_ = new QLineEdit(page);
  text1_->setObjectName(QStringLiteral("Text1"));
  text1_->setMaxLength(std::numeric_limits<int>::max());
  text1_->setToolTip(QStringLiteral("The name of the new entry"));
  text1_->setPlaceholderText(QStringLiteral("Name of the new entry"));
  auto* const hint = new QLabel(QStringLiteral("Enter: store; empty: cancel"), page);
  hint->setObjectName(QStringLiteral("LabelText1"));
  hint->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(text1_);
  column->addWidget(hint);
  connect(text1_, &QLineEdit::returnPressed, this, [this] { Q_EMIT NameEntered(text1_->text()); });
  places_->addWidget(page);
}

void LibraryPanel::ShowNames(std::size_t selected) {
  const int scrolled = list1_->verticalScrollBar()->value();
  const QRect current = list1_->visualRect(list1_->currentIndex());
  const bool wasInView = list1_->viewport()->rect().intersects(current);
  model_->Reload();
  const int row = model_->RowFrom(selected);
  if (row < model_->rowCount() && model_->EntryOf(row) == selected) SelectRow(row);
  list1_->verticalScrollBar()->setValue(scrolled);
  // Who has scrolled away from the selected name looks at others.
  if (wasInView) list1_->scrollTo(list1_->currentIndex());
  RefreshButtons();
}

void LibraryPanel::ShowNamesFrom(std::size_t place) {
  const int former = list1_->currentIndex().row();
  ShowNames(place);
  if (SelectedIndex() && model_->IsInFileOrder()) return;
  // What comes next is what follows in the list.
  const int next = model_->IsInFileOrder() ? model_->RowFrom(place) : std::max(former, 0);
  SelectRow(std::min(next, model_->rowCount() - 1));
}

void LibraryPanel::ShowAllNames() {
  const QSignalBlocker silent(filter_);
  filter_->clear();
  ApplyFilter({});
  SelectRow(0);
}

void LibraryPanel::Reveal(std::size_t place) {
  const auto isShown = [this, place] {
    const int row = model_->RowFrom(place);
    return row < model_->rowCount() && model_->EntryOf(row) == place;
  };
  if (!isShown()) {
    const std::size_t selected = SelectedIndex().value_or(tables::kNoLine);
    const QSignalBlocker silent(filter_);
    filter_->clear();
    model_->SetFilter({});
    SelectRow(model_->RowFrom(selected));
    RefreshButtons();
  }
  if (isShown()) list1_->scrollTo(model_->index(model_->RowFrom(place)));
}

void LibraryPanel::ApplyFilter(const QString& text) {
  const std::optional<std::size_t> selected = SelectedIndex();
  model_->SetFilter(text);
  // What is not shown must not be what Update and Remove work on.
  const int row = selected ? model_->RowFrom(*selected) : 0;
  const bool isShown = row < model_->rowCount() && model_->EntryOf(row) == selected;
  SelectRow(isShown ? row : 0);
  RefreshButtons();
}

void LibraryPanel::SetOrder(EntryOrder order) {
  const std::vector<std::size_t> selected = SelectedPlaces();
  model_->SetOrder(order);
  SelectPlaces(selected);
  RefreshButtons();
}

bool LibraryPanel::ShowsWholeFile() const { return model_->IsWholeFile(); }

int LibraryPanel::SelectedCount() const { return list1_->ChosenCount(); }

std::vector<std::size_t> LibraryPanel::SelectedPlaces() const {
  std::vector<std::size_t> places;
  for (const QItemSelectionRange& range : list1_->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      places.push_back(model_->EntryOf(row));
  }
  std::ranges::sort(places);
  return places;
}

void LibraryPanel::SelectPlaces(const std::vector<std::size_t>& places) {
  std::vector<int> rows;
  for (const std::size_t place : places) {
    const int row = model_->RowFrom(place);
    if (row < model_->rowCount() && model_->EntryOf(row) == place) rows.push_back(row);
  }
  if (rows.empty()) return;
  std::ranges::sort(rows);
  // Rows in a row are one range: a choice of a million is no more work than one of two.
  QItemSelection selection;
  for (std::size_t begin = 0, end = 0; begin < rows.size(); begin = end) {
    while (end < rows.size() && rows[end] - rows[begin] == static_cast<int>(end - begin)) ++end;
    selection.append({model_->index(rows[begin]), model_->index(rows[end - 1])});
  }
  const QModelIndex first = model_->index(rows.front());
  list1_->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  list1_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  list1_->scrollTo(first);
}

void LibraryPanel::SetKeepAlive(tables::KeepAlive keepAlive) {
  model_->SetKeepAlive(std::move(keepAlive));
}

void LibraryPanel::SelectRow(int row) {
  const QModelIndex index = model_->index(row);
  if (index.isValid()) list1_->setCurrentIndex(index);
}

std::optional<std::size_t> LibraryPanel::SelectedIndex() const {
  const QItemSelectionModel& selected = *list1_->selectionModel();
  const QModelIndex row = list1_->currentIndex();
  if (selected.isSelected(row)) return model_->EntryOf(row.row());
  // The row with the keyboard's place need not be selected: Ctrl and a click take that away.
  if (SelectedCount() != 1) return std::nullopt;
  return model_->EntryOf(selected.selection().first().top());
}

void LibraryPanel::OpenNameBox() {
  text1_->clear();
  places_->setCurrentIndex(1);
  text1_->setFocus();
}

void LibraryPanel::CloseNameBox() {
  const bool hadFocus = text1_->hasFocus();
  places_->setCurrentIndex(0);
  if (hadFocus) list1_->setFocus();
}

void LibraryPanel::EmptyNameBox() { text1_->clear(); }

void LibraryPanel::SetStorable(bool storable) {
  command3_->setEnabled(storable);
  command4_->setEnabled(storable);
}

void LibraryPanel::RefreshButtons() {
  const bool hasEntries = model_->rowCount() > 0;
  command1_->setEnabled(hasEntries);
  command2_->setEnabled(hasEntries);
}

}  // namespace zentab::app

#include "app/widgets/library/entries_controller.h"

#include <QAction>
#include <QMenu>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/entry_list_view.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_panel.h"
#include "texts/template_text.h"

namespace zentab::app {
namespace {

using editor::EditStep;

struct EntryCommandRow {
  const char* name;
  const char* caption;
  QKeyCombination key;
  void (*command)(EntriesController&, LibraryPanel&);
};

constexpr EntryCommandRow kEntryCommands[] = {
    {"m_rename", "Re&name", Qt::Key_F2,
     [](EntriesController&, LibraryPanel& panel) { panel.List().Rename(); }},
    {"m_duplicate", "&Duplicate", Qt::CTRL | Qt::Key_D,
     [](EntriesController& entries, LibraryPanel&) { entries.Duplicate(); }},
    {"m_entryup", "Move u&p", Qt::ALT | Qt::Key_Up,
     [](EntriesController& entries, LibraryPanel&) { entries.Move(-1); }},
    {"m_entrydown", "Move do&wn", Qt::ALT | Qt::Key_Down,
     [](EntriesController& entries, LibraryPanel&) { entries.Move(1); }},
};

}  // namespace

EntriesController::EntriesController(const EntryParts& parts, QObject* parent)
    : QObject(parent), parts_(parts), commands_(parts.session, parts.writer) {
  connect(&parts.library, &LibraryController::SeveralRemovalsWanted, this,
          &EntriesController::RemoveChosen);
  connect(&parts.panel, &LibraryPanel::RenameWanted, this, &EntriesController::Rename);
  connect(&parts.panel, &LibraryPanel::MoveToWanted, this, &EntriesController::MoveTo);
  const EntryListView& list = parts.panel.List();
  connect(&list, &EntryListView::DuplicateWanted, this, &EntriesController::Duplicate);
  connect(&list, &EntryListView::MoveWanted, this, &EntriesController::Move);
}

void EntriesController::AddTo(QMenu& menu) {
  for (const EntryCommandRow& row : kEntryCommands) {
    QAction* const action = menu.addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    // Shown only: the list takes these keys itself.
    action->setShortcut(row.key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            [this, command = row.command] { command(*this, parts_.panel); });
  }
}

void EntriesController::AddSortTo(QMenu& menu) const {
  QAction* const sort = menu.addAction(QStringLiteral("&Sort file…"));
  sort->setObjectName(QStringLiteral("m_sortfile"));
  connect(sort, &QAction::triggered, this, &EntriesController::SortFile);
}

bool EntriesController::Begin() {
  if (parts_.files.IsAtWork()) return false;
  Q_EMIT CommandBegun();
  return true;
}

void EntriesController::RemoveChosen() {
  if (!Begin()) return;
  const std::vector<std::size_t> places = parts_.panel.SelectedPlaces();
  const EntryMarks marks = MarksOf(parts_.session.listing, places);
  const texts::LibraryTexts& texts = parts_.session.texts.library;
  const std::string title = MessageFor(parts_.session, MessageBox::ConfirmRemoval, {}).title;
  const std::string count = std::to_string(places.size());
  if (!parts_.dialogs.Confirm({title, Expanded(parts_.session, texts.removeSeveral, {count})})) {
    return;
  }
  if (Run(EditStep::Remove, marks, [this](EntryMarks& each) { return commands_.Remove(each); })) {
    return;
  }
  parts_.panel.ShowNamesFrom(places.front());
  Q_EMIT parts_.library.LibraryChanged();
}

void EntriesController::Duplicate() {
  const std::vector<std::size_t> places = parts_.panel.SelectedPlaces();
  if (places.empty() || !Begin()) return;
  const std::error_code error =
      Run(EditStep::DuplicateEntries, MarksOf(parts_.session.listing, places),
          [this](EntryMarks& marks) { return commands_.Duplicate(marks); });
  if (error == std::errc::not_supported) {
    Q_EMIT Failed(QString::fromStdString(parts_.session.texts.library.notDuplicated));
  }
}

void EntriesController::Rename(const tables::EntryMark& entry, const QString& name) {
  if (!Begin()) return;
  const std::string typed = name.toStdString();
  const std::error_code error = Run(EditStep::RenameEntry, {entry}, [&](EntryMarks& marks) {
    return commands_.Rename(marks, typed);
  });
  const std::string shown = ShownName(typed).toStdString();
  if (error == std::errc::file_exists) {
    parts_.dialogs.Inform(MessageFor(parts_.session, MessageBox::DuplicateName, shown));
  } else if (error == std::errc::invalid_argument) {
    const std::string& text = parts_.session.texts.library.notAName;
    Q_EMIT Failed(QString::fromStdString(texts::ExpandTemplate(text, {}, {shown})));
  }
}

bool EntriesController::MayMove() {
  if (parts_.panel.ShowsWholeFile()) return true;
  Q_EMIT Failed(QString::fromStdString(parts_.session.texts.library.movesInFileOrder));
  return false;
}

void EntriesController::Move(int by) {
  const std::vector<std::size_t> places = parts_.panel.SelectedPlaces();
  if (places.empty()) return;
  constexpr std::size_t kBehindNext = 2;
  if (by > 0) return MoveTo(places.back() + kBehindNext);
  MoveTo(places.front() > 0 ? places.front() - 1 : 0);
}

void EntriesController::MoveTo(std::size_t place) {
  const std::vector<std::size_t> places = parts_.panel.SelectedPlaces();
  if (places.empty() || !Begin() || !MayMove()) return;
  [[maybe_unused]] const std::error_code told =
      Run(EditStep::MoveEntries, MarksOf(parts_.session.listing, places),
          [&](EntryMarks& marks) { return commands_.Move(marks, place); });
}

void EntriesController::SortFile() {
  if (!Begin()) return;
  const texts::LibraryTexts& texts = parts_.session.texts.library;
  const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
  const auto answer = parts_.dialogs.Choose(
      {text(texts.sortHeading),
       {{text(texts.sortBy), {text(texts.byName), text(texts.byInstrument)}, 0}}});
  if (!answer) return;
  const EntryOrder order = answer->front() == 0 ? EntryOrder::Name : EntryOrder::Instrument;
  bool isChanged = false;
  const EntryMarks chosen = MarksOf(parts_.session.listing, parts_.panel.SelectedPlaces());
  const std::error_code error = Run(EditStep::SortLibrary, chosen,
                                    [&](EntryMarks&) { return commands_.Sort(order, isChanged); });
  if (!error && !isChanged) Q_EMIT Failed(text(texts.isSorted));
}

std::error_code EntriesController::Run(EditStep step, EntryMarks marks, const Work& work) {
  const std::size_t readings = parts_.session.listing.readings;
  const tables::EntryMark selected = parts_.library.SelectedMark();
  Q_EMIT AboutToChange(step);
  const ResponsiveFiles::Work atWork(parts_.files);
  const std::error_code error = work(marks);
  if (error) {
    // cppcheck-suppress knownConditionTrueFalse
    if (parts_.session.listing.readings != readings) parts_.library.ShowChanged(selected);
    const bool isTold = error == std::errc::file_exists || error == std::errc::invalid_argument ||
                        error == std::errc::not_supported;
    if (!isTold) Q_EMIT Failed(parts_.library.WriteFailureText(error));
  } else if (!marks.empty() || step == EditStep::SortLibrary) {
    parts_.panel.ShowNames(tables::kNoLine);
    parts_.panel.SelectPlaces(PlacesOf(parts_.session.listing, marks));
    Q_EMIT parts_.library.LibraryChanged();
  }
  return error;
}

}  // namespace zentab::app

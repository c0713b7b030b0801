#include "app/widgets/library/library_controller.h"

#include <QTimer>
#include <memory>

#include "app/entry_commands.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/library_panel.h"
#include "app/widgets/status_line.h"

namespace zentab::app {
LibraryController::LibraryController(Session& session, ResponsiveFiles& files,
                                     tables::TableWriter& writer, UserDialogs& dialogs,
                                     LibraryPanel& panel, int lookEvery)
    : QObject(&panel),
      session_(session),
      files_(files),
      writer_(writer),
      commands_(session, writer),
      dialogs_(dialogs),
      panel_(panel),
      watch_(new QTimer(this)) {
  // Network shares tell nobody of changes that other computers make: the file has to be looked at.
  watch_->setInterval(lookEvery);
  connect(watch_, &QTimer::timeout, this, &LibraryController::LookAtFile);
  panel.SetKeepAlive(writer.Alive());
  connect(&panel, &LibraryPanel::FilterWanted, this, &LibraryController::Filter);
  connect(&panel, &LibraryPanel::ReadWanted, this, &LibraryController::Read);
  connect(&panel, &LibraryPanel::RemoveWanted, this, &LibraryController::Remove);
  connect(&panel, &LibraryPanel::AddNewWanted, this, &LibraryController::AddNew);
  connect(&panel, &LibraryPanel::UpdateWanted, this, &LibraryController::Update);
  connect(&panel, &LibraryPanel::NameEntered, this, &LibraryController::EnterName);
}

void LibraryController::FillEntryList() {
  const ResponsiveFiles::Work work(files_);
  ShowFromStart(commands_.FillEntryList());
}

void LibraryController::ShowFromStart(std::error_code error) {
  isLost_ = false;
  panel_.ShowAllNames();
  watch_->start();
  Q_EMIT LibraryChanged();
  if (error)
    Q_EMIT Failed(FailureText(session_.texts.program, session_.texts.program.listFailed, error));
}

void LibraryController::Filter(const QString& text) {
  const ResponsiveFiles::Work work(files_);
  panel_.ApplyFilter(text);
}

void LibraryController::Read() {
  std::optional<tables::EntryMark> mark = Begin();
  if (!mark) return;
  Q_EMIT GridNeeded();
  if (session_.table.tableModified && !Agreed(MessageBox::DiscardEdits, *mark)) return;
  Q_EMIT AboutToChange(editor::EditStep::Read);
  if (!Run(&LibraryCommands::ReadEntry, *mark)) return;
  Q_EMIT TableRead();
  Q_EMIT LibraryChanged();
}

void LibraryController::Remove() {
  if (panel_.SelectedCount() > 1) return SeveralRemovalsWanted();
  std::optional<tables::EntryMark> mark = Begin();
  if (!mark || !Agreed(MessageBox::ConfirmRemoval, *mark)) return;
  Q_EMIT AboutToChange(editor::EditStep::Remove);
  if (!Run(&LibraryCommands::RemoveEntry, *mark)) return;
  // The entry that moved up is the next one to look at; behind the last one it is the one before.
  panel_.ShowNamesFrom(mark->index);
  Q_EMIT LibraryChanged();
}

void LibraryController::AddNew() {
  Q_EMIT CommandBegun();
  Q_EMIT GridNeeded();
  panel_.OpenNameBox();
}

void LibraryController::Update() {
  std::optional<tables::EntryMark> mark = Begin();
  if (!mark) return;
  Q_EMIT GridNeeded();
  if (!Agreed(MessageBox::ConfirmUpdate, *mark)) return;
  Q_EMIT AboutToChange(editor::EditStep::Update);
  if (!Run(&LibraryCommands::UpdateEntry, *mark)) return;
  Q_EMIT LibraryChanged();
}

void LibraryController::EnterName(const QString& name) {
  if (files_.IsAtWork()) return;
  Q_EMIT CommandBegun();
  if (!name.trimmed().isEmpty() && TakesLeftover()) return;
  std::error_code error;
  Q_EMIT AboutToChange(editor::EditStep::AddNew);
  switch (Add(name, error)) {
    case NameResult::Added:
      if (writer_.HasKeptLeftover()) {
        Q_EMIT Failed(QString::fromStdString(session_.texts.program.leftoverKept));
      }
      [[fallthrough]];
    case NameResult::Empty:
      panel_.CloseNameBox();
      break;
    case NameResult::Duplicate:
      dialogs_.Inform(MessageFor(session_, MessageBox::DuplicateName,
                                 ShownName(name.trimmed().toStdString()).toStdString()));
      panel_.EmptyNameBox();
      break;
    case NameResult::NotWritten:
      // The box keeps the name for another try.
      Q_EMIT Failed(FailureText(session_.texts.program, WriteFailure(), error));
      break;
  }
}

// The list shows then what was missing, and the box keeps the name for another Enter.
bool LibraryController::TakesLeftover() {
  const ResponsiveFiles::Work work(files_);
  if (!commands_.FindsLeftover()) return false;
  const texts::ProgramTexts& texts = session_.texts.program;
  const std::string text = Expanded(session_, texts.leftoverText);
  if (!dialogs_.Confirm({texts.leftoverHeading, text})) return false;
  ShowFromStart(commands_.TakeLeftover());
  return true;
}

void LibraryController::SetActiveTable() {
  if (files_.IsAtWork()) return;
  OpenTable(dialogs_.ChooseTableFile());
}

void LibraryController::OpenTable(const QString& file) {
  if (file.isEmpty() || files_.IsAtWork()) return;
  Q_EMIT CommandBegun();
  const ResponsiveFiles::Work work(files_);
  ShowFromStart(commands_.SetActiveTable(file.toStdString()));
  Q_EMIT TableFileChosen();
}

void LibraryController::LookAtFile() {
  if (isLooking_ || files_.IsAtWork()) return;
  isLooking_ = true;
  files_.Quietly(
      [place = PlaceOf(session_)](platform::FileLayer& files) {
        Look look;
        look.error = files.StampOf(ActiveTableFile(files, place), look.stamp);
        return look;
      },
      [this](const Look& look) {
        isLooking_ = false;
        if (look.error) return;
        const bool isSettled = look.stamp == seen_;
        seen_ = look.stamp;
        if (isSettled && look.stamp != session_.listing.stamp) ListQuietly();
      });
}

void LibraryController::ListQuietly() {
  isLooking_ = true;
  files_.Quietly(
      [place = PlaceOf(session_)](platform::FileLayer& files) {
        Listed listed;
        listed.tablePath = place.tablePath;
        // One that cannot be read now is tried again at the next look.
        listed.isRead = !tables::ListEntries(files, ActiveTableFile(files, place), listed.listing);
        return listed;
      },
      [this](Listed&& listed) {
        isLooking_ = false;
        const bool isNews = listed.listing.stamp != session_.listing.stamp;
        if (!listed.isRead || !isNews || listed.tablePath != session_.tablePath) return;
        Take(std::move(listed.listing));
      });
}

void LibraryController::Take(tables::TableListing fresh) {
  // To put a million names in order takes a while.
  const ResponsiveFiles::Work work(files_);
  const tables::EntryMark mark = SelectedMark();
  const bool areSeveral = panel_.SelectedCount() > 1;
  const EntryMarks chosen =
      areSeveral ? MarksOf(session_.listing, panel_.SelectedPlaces()) : EntryMarks();
  fresh.readings += session_.listing.readings;
  // To free a million names takes longer than to show them.
  auto former = std::make_shared<tables::TableListing>(std::move(session_.listing));
  session_.listing = std::move(fresh);
  files_.Post([former = std::move(former)]() mutable { former.reset(); });
  ShowChanged(mark);
  if (areSeveral) panel_.SelectPlaces(PlacesOf(session_.listing, chosen));
}

void LibraryController::ShowAddedEntries() {
  const ResponsiveFiles::Work work(files_);
  tables::TableListing fresh;
  const auto file = ActiveTableFile(files_, PlaceOf(session_));
  if (const std::error_code error = tables::ListEntries(files_, file, fresh)) {
    Q_EMIT Failed(FailureText(session_.texts.program, session_.texts.program.listFailed, error));
    return;
  }
  Take(std::move(fresh));
  if (!session_.listing.names.empty()) panel_.Reveal(session_.listing.names.size() - 1);
}

tables::EntryMark LibraryController::SelectedMark() const {
  return session_.listing.MarkOf(panel_.SelectedIndex().value_or(tables::kNoLine));
}

void LibraryController::ShowChanged(const tables::EntryMark& entry) {
  const bool wasSelected = entry.index != tables::kNoLine;
  const std::size_t place = session_.listing.PlaceOf(entry);
  isLost_ = isLost_ || (wasSelected && place == tables::kNoLine);
  panel_.ShowNames(place);
  Q_EMIT LibraryChanged();
}

void LibraryController::SelectSource() {
  const std::optional<editor::EntryInGrid>& source = session_.source;
  if (!source || source->tablePath != session_.tablePath) return;
  const std::size_t place = session_.listing.PlaceOf({0, source->hash});
  if (place != tables::kNoLine) panel_.ShowNames(place);
}

QString LibraryController::WriteFailureText(std::error_code error) const {
  const texts::ProgramTexts& texts = session_.texts.program;
  if (error == tables::kEntryChanged) return QString::fromStdString(texts.entryChanged);
  return FailureText(texts, WriteFailure(), error);
}

std::optional<tables::EntryMark> LibraryController::Begin() {
  if (files_.IsAtWork()) return std::nullopt;
  Q_EMIT CommandBegun();
  const std::optional<std::size_t> selected = panel_.SelectedIndex();
  if (selected) {
    isLost_ = false;
    return session_.listing.MarkOf(*selected);
  }
  if (isLost_) Q_EMIT Failed(QString::fromStdString(session_.texts.program.entryChanged));
  return std::nullopt;
}

bool LibraryController::Agreed(MessageBox box, const tables::EntryMark& mark) const {
  return dialogs_.Confirm(
      MessageFor(session_, box, ShownName(session_.listing.names[mark.index]).toStdString()));
}

const std::string& LibraryController::WriteFailure() const {
  const texts::ProgramTexts& texts = session_.texts.program;
  return writer_.LacksBackup() ? texts.backupFailed : texts.writeFailed;
}

bool LibraryController::Run(Command command, tables::EntryMark& mark) {
  const std::size_t readings = session_.listing.readings;
  const ResponsiveFiles::Work work(files_);
  const std::error_code error = (commands_.*command)(mark);
  // cppcheck-suppress knownConditionTrueFalse
  if (session_.listing.readings != readings) {
    isLost_ = mark.index == tables::kNoLine;
    panel_.ShowNames(mark.index);
    Q_EMIT LibraryChanged();
  }
  if (!error) return true;
  const bool reads = command == &LibraryCommands::ReadEntry && error != tables::kEntryChanged;
  Q_EMIT Failed(reads
                    ? FailureText(session_.texts.program, session_.texts.program.readFailed, error)
                    : WriteFailureText(error));
  return false;
}

bool LibraryController::ReadLine(tables::EntryMark mark, std::string& line) {
  const std::size_t readings = session_.listing.readings;
  const tables::EntryMark selected = SelectedMark();
  const ResponsiveFiles::Work work(files_);
  const std::error_code error = tables::ReadEntryLine(
      files_, ActiveTableFile(files_, PlaceOf(session_)), session_.listing, mark, line);
  // cppcheck-suppress knownConditionTrueFalse
  if (session_.listing.readings != readings) ShowChanged(selected);
  if (!error) return true;
  const texts::ProgramTexts& texts = session_.texts.program;
  Q_EMIT Failed(error == tables::kEntryChanged ? WriteFailureText(error)
                                               : FailureText(texts, texts.readFailed, error));
  return false;
}

NameResult LibraryController::Add(const QString& name, std::error_code& error) {
  const std::size_t readings = session_.listing.readings;
  const ResponsiveFiles::Work work(files_);
  const tables::EntryMark mark = SelectedMark();
  const NameResult result = commands_.EnterName(name.toStdString(), error);
  // cppcheck-suppress knownConditionTrueFalse
  if (result == NameResult::Added || session_.listing.readings != readings) {
    // The new entry is not selected.
    ShowChanged(mark);
    if (result == NameResult::Added) panel_.Reveal(session_.listing.names.size() - 1);
  }
  return result;
}

}  // namespace zentab::app

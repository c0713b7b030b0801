#include "app/widgets/library/library_controller.h"

#include <QApplication>
#include <QTimer>

#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/library_panel.h"
#include "app/widgets/responsive_files.h"
#include "app/widgets/status_line.h"

namespace zentab::app {
namespace {

// Network shares tell nobody of changes that other computers make: the file has to be looked at.
constexpr int kLookEvery = 500;  // milliseconds

}  // namespace

LibraryController::LibraryController(Session& session, ResponsiveFiles& files,
                                     tables::TableWriter& writer, UserDialogs& dialogs,
                                     LibraryPanel& panel)
    : QObject(&panel),
      session_(session),
      files_(files),
      writer_(writer),
      commands_(session, writer),
      dialogs_(dialogs),
      panel_(panel),
      watch_(new QTimer(this)) {
  watch_->setInterval(kLookEvery);
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
  commands_.FillEntryList();
  ShowFromStart();
}

void LibraryController::ShowFromStart() {
  panel_.ShowAllNames();
  watch_->start();
  Q_EMIT LibraryChanged();
}

void LibraryController::Filter(const QString& text) {
  const ResponsiveFiles::Work work(files_);
  panel_.ApplyFilter(text);
}

void LibraryController::Read() {
  std::optional<std::size_t> index = Selected();
  if (!index) return;
  Q_EMIT GridNeeded();
  if (session_.table.tableModified && !Agreed(MessageBox::DiscardEdits, *index)) return;
  if (!Run(&LibraryCommands::ReadEntry, *index)) return;
  Q_EMIT TableRead();
  Q_EMIT LibraryChanged();
}

void LibraryController::Remove() {
  std::optional<std::size_t> index = Selected();
  if (!index || !Agreed(MessageBox::ConfirmRemoval, *index)) return;
  if (!Run(&LibraryCommands::RemoveEntry, *index)) return;
  // The entry that moved up is the next one to look at; behind the last one it is the one before.
  panel_.ShowNamesFrom(*index);
  Q_EMIT LibraryChanged();
}

void LibraryController::AddNew() {
  Q_EMIT GridNeeded();
  panel_.OpenNameBox();
}

void LibraryController::Update() {
  std::optional<std::size_t> index = Selected();
  if (!index) return;
  Q_EMIT GridNeeded();
  if (!Agreed(MessageBox::ConfirmUpdate, *index)) return;
  if (!Run(&LibraryCommands::UpdateEntry, *index)) return;
  Q_EMIT LibraryChanged();
}

void LibraryController::EnterName(const QString& name) {
  if (files_.IsAtWork()) return;
  switch (Add(name)) {
    case NameResult::Empty:
    case NameResult::Added:
      panel_.CloseNameBox();
      break;
    case NameResult::Duplicate:
      dialogs_.Inform(MessageFor(session_, MessageBox::DuplicateName,
                                 ShownName(name.trimmed().toStdString()).toStdString()));
      panel_.EmptyNameBox();
      break;
    case NameResult::NotWritten:
      // The box keeps the name for another try.
      Q_EMIT Failed(QString::fromStdString(WriteFailure()));
      break;
  }
}

void LibraryController::SetActiveTable() {
  if (files_.IsAtWork()) return;
  const QString file = dialogs_.ChooseTableFile();
  if (file.isEmpty()) return;
  const ResponsiveFiles::Work work(files_);
  commands_.SetActiveTable(file.toStdString());
  ShowFromStart();
  Q_EMIT TableFileChosen();
}

void LibraryController::LookAtFile() {
  // A question is about the entry that is selected now.
  if (files_.IsAtWork() || QApplication::activeModalWidget() != nullptr) return;
  const std::optional<platform::FileStamp> now = platform::StampOf(ActiveTableFile(session_));
  const bool isSettled = now == seen_;
  seen_ = now;
  if (isSettled && now != session_.listing.stamp) FollowFile();
}

void LibraryController::FollowFile() {
  const ResponsiveFiles::Work work(files_);
  std::size_t index = panel_.SelectedIndex().value_or(tables::kNoLine);
  if (!commands_.RefreshEntryList(index)) return;
  panel_.ShowNames(index);
  Q_EMIT LibraryChanged();
}

void LibraryController::ShowAddedEntries() {
  FollowFile();
  panel_.Reveal(session_.listing.names.size() - 1);
}

std::optional<std::size_t> LibraryController::Selected() const {
  return files_.IsAtWork() ? std::nullopt : panel_.SelectedIndex();
}

bool LibraryController::Agreed(MessageBox box, std::size_t index) const {
  return dialogs_.Confirm(
      MessageFor(session_, box, ShownName(session_.listing.names[index]).toStdString()));
}

const std::string& LibraryController::WriteFailure() const {
  const texts::ProgramTexts& texts = session_.texts.program;
  return writer_.LacksBackup() ? texts.backupFailed : texts.writeFailed;
}

bool LibraryController::Run(Command command, std::size_t& index) {
  const std::size_t readings = session_.listing.readings;
  const ResponsiveFiles::Work work(files_);
  const std::error_code error = (commands_.*command)(index);
  if (session_.listing.readings != readings) {
    panel_.ShowNames(index);
    Q_EMIT LibraryChanged();
  }
  if (error == tables::kEntryChanged) {
    Q_EMIT Failed(QString::fromStdString(session_.texts.program.entryChanged));
  } else if (error) {
    const bool reads = command == &LibraryCommands::ReadEntry;
    Q_EMIT Failed(FailureText(reads ? session_.texts.program.readFailed : WriteFailure(), error));
  }
  return !error;
}

NameResult LibraryController::Add(const QString& name) {
  const std::size_t readings = session_.listing.readings;
  const ResponsiveFiles::Work work(files_);
  std::size_t index = panel_.SelectedIndex().value_or(tables::kNoLine);
  const NameResult result = commands_.EnterName(name.toStdString(), index);
  if (result == NameResult::Added || session_.listing.readings != readings) {
    // The new entry is not selected.
    panel_.ShowNames(index);
    if (result == NameResult::Added) panel_.Reveal(session_.listing.names.size() - 1);
    Q_EMIT LibraryChanged();
  }
  return result;
}

}  // namespace zentab::app

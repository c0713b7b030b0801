#include "app/widgets/library_controller.h"

#include "app/widgets/entry_list_model.h"
#include "app/widgets/library_panel.h"
#include "app/widgets/status_line.h"

namespace zentab::app {

LibraryController::LibraryController(Session& session, platform::FileLayer& files,
                                     UserDialogs& dialogs, LibraryPanel& panel)
    : session_(session), commands_(session, files), dialogs_(dialogs), panel_(panel) {
  connect(&panel, &LibraryPanel::ReadWanted, this, &LibraryController::Read);
  connect(&panel, &LibraryPanel::RemoveWanted, this, &LibraryController::Remove);
  connect(&panel, &LibraryPanel::AddNewWanted, this, &LibraryController::AddNew);
  connect(&panel, &LibraryPanel::UpdateWanted, this, &LibraryController::Update);
  connect(&panel, &LibraryPanel::NameEntered, this, &LibraryController::EnterName);
}

void LibraryController::FillEntryList() {
  commands_.FillEntryList();
  panel_.ShowNames(0);
  Q_EMIT LibraryChanged();
}

void LibraryController::Read() {
  const std::optional<std::size_t> index = panel_.SelectedIndex();
  if (!index) return;
  Q_EMIT GridNeeded();
  if (session_.table.tableModified && !Agreed(MessageBox::DiscardEdits, *index)) return;
  if (const std::error_code error = commands_.ReadEntry(*index)) {
    ReportFailure(session_.texts.program.readFailed, error);
    return;
  }
  Q_EMIT TableRead();
  Q_EMIT LibraryChanged();
}

void LibraryController::Remove() {
  const std::optional<std::size_t> index = panel_.SelectedIndex();
  if (!index || !Agreed(MessageBox::ConfirmRemoval, *index)) return;
  if (const std::error_code error = commands_.RemoveEntry(*index)) {
    ReportFailure(session_.texts.program.writeFailed, error);
    return;
  }
  // The entry that moved up is the next one to look at; behind the last one it is the one before.
  const std::size_t count = session_.entryNames.size();
  panel_.ShowNames(*index < count || count == 0 ? *index : count - 1);
  Q_EMIT LibraryChanged();
}

void LibraryController::AddNew() {
  Q_EMIT GridNeeded();
  panel_.OpenNameBox();
}

void LibraryController::Update() {
  const std::optional<std::size_t> index = panel_.SelectedIndex();
  if (!index) return;
  Q_EMIT GridNeeded();
  if (!Agreed(MessageBox::ConfirmUpdate, *index)) return;
  if (const std::error_code error = commands_.UpdateEntry(*index)) {
    ReportFailure(session_.texts.program.writeFailed, error);
    return;
  }
  Q_EMIT LibraryChanged();
}

void LibraryController::EnterName(const QString& name) {
  const std::optional<std::size_t> selected = panel_.SelectedIndex();
  switch (commands_.EnterName(name.toStdString())) {
    case NameResult::Empty:
      panel_.CloseNameBox();
      break;
    case NameResult::Added:
      panel_.CloseNameBox();
      // The new entry is not selected.
      panel_.ShowNames(selected.value_or(session_.entryNames.size()));
      Q_EMIT LibraryChanged();
      break;
    case NameResult::Duplicate:
      dialogs_.Inform(MessageFor(session_, MessageBox::DuplicateName,
                                 ShownName(name.trimmed().toStdString()).toStdString()));
      panel_.EmptyNameBox();
      break;
    case NameResult::NotWritten:
      // The box keeps the name for another try.
      Q_EMIT Failed(QString::fromStdString(session_.texts.program.writeFailed));
      break;
  }
}

void LibraryController::SetActiveTable() {
  const QString file = dialogs_.ChooseTableFile();
  if (file.isEmpty()) return;
  commands_.SetActiveTable(file.toStdString());
  panel_.ShowNames(0);
  Q_EMIT TableFileChosen();
  Q_EMIT LibraryChanged();
}

bool LibraryController::Agreed(MessageBox box, std::size_t index) const {
  return dialogs_.Confirm(
      MessageFor(session_, box, ShownName(session_.entryNames[index]).toStdString()));
}

void LibraryController::ReportFailure(const std::string& text, std::error_code error) {
  Q_EMIT Failed(FailureText(text, error));
}

}  // namespace zentab::app

#include "app/widgets/exchange/exchange_controller.h"

#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTextDocument>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/settings.h"
#include "app/widgets/responsive_files.h"
#include "app/widgets/status_line.h"
#include "app/widgets/window_placement.h"
#include "exchange/entry_copy.h"
#include "platform/paths.h"

namespace zentab::app {

using exchange::ExchangeDialog;

ExchangeController::ExchangeController(Session& session, ResponsiveFiles& files,
                                       tables::TableWriter& writer, UserDialogs& dialogs,
                                       platform::SettingsStore& store, std::string title,
                                       QWidget& window)
    : QObject(&window),
      session_(session),
      files_(files),
      writer_(writer),
      dialogs_(dialogs),
      store_(store),
      title_(std::move(title)),
      window_(window) {}

void ExchangeController::Import() {
  ExchangeDialog* const dialog = MakeDialog(Mode::Import);
  window_.setCursor(Qt::BusyCursor);
  dialog->exec();
  window_.unsetCursor();
  if (activeFileGrew_) Q_EMIT EntriesAdded();
}

void ExchangeController::Export() {
  ExchangeDialog* const dialog = MakeDialog(Mode::Export);
  connect(dialog, &QDialog::finished, this, [this] {
    if (activeFileGrew_) Q_EMIT EntriesAdded();
  });
  dialog->open();
}

ExchangeDialog* ExchangeController::MakeDialog(Mode mode) {
  mode_ = mode;
  fileChosen_ = false;
  activeFileGrew_ = false;
  listing_ = {};
  entries_.Reload();
  auto* const dialog = new ExchangeDialog(entries_, &window_);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFont(window_.font());
  dialog->list1->setItemDelegate(new RoomyRows(dialog->list1));
  ShowTexts(*dialog);
  RestorePlacement(*dialog, LoadExchangePlacement(store_, title_));
  connect(dialog, &ExchangeDialog::Opened, this, [this, dialog] { ChooseFile(*dialog); });
  connect(dialog, &ExchangeDialog::SelectionChanged, this,
          [this, dialog] { ShowSelection(*dialog); });
  connect(dialog->fileButton, &QPushButton::clicked, this, [this, dialog] { ChooseFile(*dialog); });
  connect(dialog->command1, &QPushButton::clicked, this, [this, dialog] { Execute(*dialog); });
  connect(dialog, &ExchangeDialog::Closing, this, [this, dialog] { StorePlacement(*dialog); });
  return dialog;
}

void ExchangeController::ChooseFile(ExchangeDialog& dialog) {
  const bool importing = mode_ == Mode::Import;
  const QString file = importing ? dialogs_.ChooseTableFile() : dialogs_.ChooseTargetFile();
  if (file.isEmpty()) {
    // A file that was chosen before stays.
    if (fileChosen_) return;
    dialog.outcome->setText(QString::fromStdString(session_.texts.program.noExchangeFile));
    dialog.fileButton->setFocus();
    return;
  }
  fileChosen_ = true;
  session_.exchangeFile = QDir::toNativeSeparators(file).toStdString();
  if (importing) {
    ListSource();
  } else {
    listing_ = session_.listing;
    entries_.Reload();
  }
  dialog.command1->setEnabled(importing || !listing_.names.empty());
  ShowTexts(dialog);
  ShowSelection(dialog);
  dialog.list1->setFocus();
}

void ExchangeController::Execute(ExchangeDialog& dialog) {
  dialog.command1->setEnabled(false);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const std::filesystem::path target =
      mode_ == Mode::Import ? ActiveTableFile(session_) : platform::ToPath(session_.exchangeFile);
  exchange::CopyResult result;
  {
    const ResponsiveFiles::Work work(files_);
    result =
        exchange::CopyEntries(writer_, Source(), listing_.stamp, dialog.SelectedRows(), target);
  }
  if (result.copied > 0 && (mode_ == Mode::Import || CopiesOntoItself())) activeFileGrew_ = true;
  const bool isStale = result.error == tables::kEntryChanged;
  if (isStale || CopiesOntoItself()) ListSource();
  QGuiApplication::restoreOverrideCursor();
  dialog.command1->setEnabled(true);
  // The button lost the focus when it was disabled; what comes next is another selection.
  dialog.list1->setFocus();
  const texts::ProgramTexts& texts = session_.texts.program;
  if (isStale) {
    dialog.outcome->setText(QString::fromStdString(texts.fileChanged));
  } else if (result.error) {
    const std::string& what = writer_.LacksBackup() ? texts.backupFailed : texts.copyFailed;
    dialog.outcome->setText(FailureText(what, result.error));
  } else {
    const std::string count = std::to_string(result.copied);
    dialog.outcome->setText(
        QString::fromStdString(Expanded(session_, texts.entriesCopied, {count})));
  }
}

std::filesystem::path ExchangeController::Source() const {
  return mode_ == Mode::Import ? platform::ToPath(session_.exchangeFile)
                               : ActiveTableFile(session_);
}

void ExchangeController::ListSource() {
  const ResponsiveFiles::Work work(files_);
  listing_ = tables::ListEntries(Source(), writer_.Alive());
  entries_.Reload();
}

void ExchangeController::ShowTexts(ExchangeDialog& dialog) const {
  const texts::ExchangeTexts& texts =
      mode_ == Mode::Import ? session_.texts.importing : session_.texts.exporting;
  const auto text = [this](const std::string& raw) {
    return QString::fromStdString(Expanded(session_, raw));
  };
  const auto tip = [&](QWidget* control, const std::string& raw) {
    // Plain text would stand in one line, however long.
    if (!raw.empty())
      control->setToolTip(Qt::convertFromPlainText(text(raw), Qt::WhiteSpaceNormal));
  };
  // A heading that names the file has to wait until one is chosen.
  const bool complete = fileChosen_ || texts.heading.find("%G") == std::string::npos;
  if (complete && !texts.heading.empty()) dialog.setWindowTitle(text(texts.heading));
  if (!texts.button.empty()) dialog.command1->setText(text(texts.button));
  tip(dialog.command1, texts.buttonTip);
  tip(dialog.list1, texts.listTip);
  dialog.fileButton->setText(QString::fromStdString(session_.texts.program.chooseFile));
  dialog.closeButton->setText(QString::fromStdString(session_.texts.program.close));
}

void ExchangeController::ShowSelection(ExchangeDialog& dialog) const {
  const std::string count = std::to_string(dialog.SelectedCount());
  dialog.outcome->setText(
      QString::fromStdString(Expanded(session_, session_.texts.program.entriesSelected, {count})));
}

void ExchangeController::StorePlacement(const ExchangeDialog& dialog) const {
  // The dialog closes whether or not its place is remembered.
  [[maybe_unused]] const std::error_code dropped =
      SaveExchangePlacement(store_, title_, PlacementOf(dialog));
}

bool ExchangeController::CopiesOntoItself() const {
  std::error_code error;
  return fileChosen_ && std::filesystem::equivalent(ActiveTableFile(session_),
                                                    platform::ToPath(session_.exchangeFile), error);
}

}  // namespace zentab::app

#include "app/widgets/exchange/exchange_controller.h"

#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>

#include "app/library_commands.h"
#include "app/session_texts.h"
#include "app/settings.h"
#include "app/widgets/files/responsive_files.h"
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
  if (files_.IsAtWork()) return;
  ExchangeDialog* const dialog = MakeDialog(Mode::Import);
  window_.setCursor(Qt::BusyCursor);
  dialog->exec();
  window_.unsetCursor();
  if (activeFileGrew_) Q_EMIT EntriesAdded();
}

void ExchangeController::ImportFrom(const QString& file) {
  // What does not begin leaves no file to the next import.
  if (files_.IsAtWork()) return;
  given_ = file;
  Import();
}

void ExchangeController::Export() {
  if (files_.IsAtWork()) return;
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
  const auto load = [&store = store_, title = title_] {
    return LoadExchangePlacement(store, title);
  };
  RestorePlacement(*dialog, platform::AskFor(files_, load).value_or(Placement()));
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
  QString file = std::exchange(given_, QString());
  if (file.isEmpty()) {
    file = importing ? dialogs_.ChooseTableFile() : dialogs_.ChooseTargetFile();
  }
  if (file.isEmpty()) {
    // A file that was chosen before stays.
    if (fileChosen_) return;
    dialog.outcome->setText(QString::fromStdString(session_.texts.program.noExchangeFile));
    dialog.fileButton->setFocus();
    return;
  }
  fileChosen_ = true;
  session_.exchangeFile = QDir::toNativeSeparators(file).toStdString();
  std::error_code error;
  if (importing) {
    dialog.isAtWork = true;
    error = ListSource();
    dialog.isAtWork = false;
  } else {
    listing_ = session_.listing;
    entries_.Reload();
  }
  dialog.command1->setEnabled(importing || !listing_.names.empty());
  ShowTexts(dialog);
  ShowSelection(dialog);
  if (error)
    dialog.outcome->setText(
        FailureText(session_.texts.program, session_.texts.program.listFailed, error));
  dialog.list1->setFocus();
}

void ExchangeController::Execute(ExchangeDialog& dialog) {
  dialog.command1->setEnabled(false);
  dialog.isAtWork = true;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const std::filesystem::path target = mode_ == Mode::Import
                                           ? ActiveTableFile(files_, PlaceOf(session_))
                                           : platform::ToPath(session_.exchangeFile);
  exchange::CopyResult result;
  {
    Q_EMIT AboutToChange(editor::EditStep::Import);
    const ResponsiveFiles::Work work(files_);
    result = exchange::CopyEntries(writer_, Source(), listing_, dialog.SelectedRows(), target);
  }
  if (result.copied > 0 && (mode_ == Mode::Import || CopiesOntoItself())) activeFileGrew_ = true;
  const bool isStale = result.error == tables::kEntryChanged;
  std::error_code listing;
  if (isStale || CopiesOntoItself()) listing = ListSource();
  dialog.isAtWork = false;
  QGuiApplication::restoreOverrideCursor();
  dialog.command1->setEnabled(true);
  // The button lost the focus when it was disabled; what comes next is another selection.
  dialog.list1->setFocus();
  const texts::ProgramTexts& texts = session_.texts.program;
  if (listing) {
    dialog.outcome->setText(FailureText(texts, texts.listFailed, listing));
  } else if (isStale) {
    dialog.outcome->setText(QString::fromStdString(texts.fileChanged));
  } else if (result.error) {
    const std::string& what = writer_.LacksBackup() ? texts.backupFailed : texts.copyFailed;
    dialog.outcome->setText(FailureText(texts, what, result.error));
  } else {
    const std::string count = std::to_string(result.copied);
    dialog.outcome->setText(
        QString::fromStdString(Expanded(session_, texts.entriesCopied, {count})));
  }
}

std::filesystem::path ExchangeController::Source() {
  return mode_ == Mode::Import ? platform::ToPath(session_.exchangeFile)
                               : ActiveTableFile(files_, PlaceOf(session_));
}

std::error_code ExchangeController::ListSource() {
  const ResponsiveFiles::Work work(files_);
  listing_ = {};
  const std::error_code error = tables::ListEntries(files_, Source(), listing_);
  entries_.Reload();
  return error;
}

void ExchangeController::ShowTexts(ExchangeDialog& dialog) const {
  const texts::ExchangeTexts& texts =
      mode_ == Mode::Import ? session_.texts.importing : session_.texts.exporting;
  const auto text = [this](const std::string& raw) {
    return QString::fromStdString(Expanded(session_, raw));
  };
  const auto tip = [&](QWidget* control, const std::string& raw) {
    if (!raw.empty()) control->setToolTip(text(raw));
  };
  // A heading that names the file has to wait until one is chosen.
  const bool complete = fileChosen_ || texts.heading.find("%G") == std::string::npos;
  if (complete && !texts.heading.empty()) dialog.setWindowTitle(text(texts.heading));
  dialog.list1->setAccessibleName(dialog.windowTitle());
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

void ExchangeController::StorePlacement(const ExchangeDialog& dialog) {
  // The dialog closes whether or not its place is remembered.
  const auto save = [&store = store_, title = title_, placement = PlacementOf(dialog)] {
    return SaveExchangePlacement(store, title, placement);
  };
  [[maybe_unused]] const std::error_code dropped = files_.Ask(save);
}

bool ExchangeController::CopiesOntoItself() {
  if (!fileChosen_) return false;
  const auto ask = [active = ActiveTableFile(files_, PlaceOf(session_)),
                    chosen = platform::ToPath(session_.exchangeFile)] {
    std::error_code unknown;
    return std::filesystem::equivalent(active, chosen, unknown);
  };
  return platform::AskFor(files_, ask).value_or(false);
}

}  // namespace zentab::app

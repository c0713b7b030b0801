#include "app/widgets/qt_user_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

#include "app/widgets/chart/entry_choice_dialog.h"
#include "app/widgets/chart/limits_dialog.h"
#include "app/widgets/choice_dialog.h"
#include "app/widgets/report/picture_size_dialog.h"
#include "app/widgets/table/number_dialog.h"

namespace zentab::app {

bool QtUserDialogs::Show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
                         const texts::MessageText& message) {
  QMessageBox box(icon, QString::fromStdString(message.title), QString::fromStdString(message.text),
                  buttons, parent_);
  box.setDefaultButton(QMessageBox::Ok);
  box.button(QMessageBox::Ok)->setText(QString::fromStdString(session_.texts.program.ok));
  if (QAbstractButton* const cancel = box.button(QMessageBox::Cancel)) {
    cancel->setText(QString::fromStdString(session_.texts.program.cancel));
  }
  return box.exec() == QMessageBox::Ok;
}

bool QtUserDialogs::Confirm(const texts::MessageText& message) {
  return Show(QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, message);
}

void QtUserDialogs::Inform(const texts::MessageText& message) {
  // There is nothing to decide.
  [[maybe_unused]] const bool dropped = Show(QMessageBox::Information, QMessageBox::Ok, message);
}

void QtUserDialogs::ReportError(const texts::MessageText& message) {
  [[maybe_unused]] const bool dropped = Show(QMessageBox::Critical, QMessageBox::Ok, message);
}

std::optional<double> QtUserDialogs::AskNumber(const NumberQuestion& question) {
  NumberDialog dialog(question, session_, WindowInFront());
  return dialog.exec() == QDialog::Accepted ? dialog.Number() : std::nullopt;
}

std::optional<std::vector<std::size_t>> QtUserDialogs::Choose(const ChoiceQuestion& question) {
  ChoiceDialog dialog(question, session_, WindowInFront());
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Answers()) : std::nullopt;
}

std::optional<AxisLimits> QtUserDialogs::AskLimits(const LimitsQuestion& question) {
  LimitsDialog dialog(question, session_, WindowInFront());
  return dialog.exec() == QDialog::Accepted ? dialog.Limits() : std::nullopt;
}

std::optional<PictureSize> QtUserDialogs::AskPictureSize(const PictureSizeQuestion& question) {
  PictureSizeDialog dialog(question, session_, WindowInFront());
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Size()) : std::nullopt;
}

std::vector<std::size_t> QtUserDialogs::ChooseEntries(const QString& title,
                                                      const std::vector<std::string>& names) {
  EntryChoiceDialog dialog(title, names, session_, WindowInFront());
  return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::vector<std::size_t>();
}

// Asked from a dialog of the main window, a question belongs in front of that dialog.
QWidget* QtUserDialogs::WindowInFront() const {
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog != nullptr ? dialog : parent_;
}

QString QtUserDialogs::ChooseFile(const QString& folder, const QString& filter,
                                  QFileDialog::AcceptMode mode, bool replaces) const {
  QFileDialog dialog(WindowInFront(), QString(), folder, filter);
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  // Choosing only: a slip must not rename or delete a file.
  dialog.setOptions(QFileDialog::ReadOnly | QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setAcceptMode(mode);
  if (mode == QFileDialog::AcceptOpen) {
    dialog.setFileMode(QFileDialog::ExistingFile);
  } else {
    dialog.setDefaultSuffix(QStringLiteral("dat"));
    // Where entries are added to an existing file there is nothing to be replaced.
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !replaces);
  }
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

// Table files are kept in the installation folder.
QString QtUserDialogs::ChooseTableFile() {
  return ChooseFile(QString::fromStdString(session_.installFolder), QStringLiteral("Dat (*.dat)"),
                    QFileDialog::AcceptOpen);
}

QString QtUserDialogs::ChooseFileToRead(const QString& filters) {
  if (read_.isEmpty()) {
    read_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  }
  QString file = ChooseFile(read_, filters, QFileDialog::AcceptOpen);
  if (!file.isEmpty()) read_ = QFileInfo(file).absolutePath();
  return file;
}

QString QtUserDialogs::ChooseTargetFile() {
  return ChooseFile(QString::fromStdString(session_.installFolder), QStringLiteral("Dat (*.dat)"),
                    QFileDialog::AcceptSave);
}

QString QtUserDialogs::ChooseNewTableFile() {
  return ChooseFile(QString::fromStdString(session_.installFolder), QStringLiteral("Dat (*.dat)"),
                    QFileDialog::AcceptSave, true);
}

void QtUserDialogs::OpenFolder(const QString& folder) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

bool QtUserDialogs::OpenPage(const QString& page) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(page));
}

bool QtUserDialogs::StartProgram(const QString& program, const QStringList& arguments) {
  return QProcess::startDetached(program, arguments);
}

QString QtUserDialogs::ChooseFileToWrite(const WriteQuestion& question) {
  if (written_.isEmpty()) {
    written_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  }
  QFileDialog dialog(WindowInFront(), question.title, written_, question.filters);
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  const auto follow = [&dialog](const QString& filter) {
    dialog.setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
  };
  follow(question.filters.section(QStringLiteral(";;"), 0, 0));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
  dialog.selectFile(question.name);
  if (dialog.exec() != QDialog::Accepted) return {};
  written_ = dialog.directory().absolutePath();
  return dialog.selectedFiles().value(0);
}

bool QtUserDialogs::ChoosePrinter(QPrinter& printer) {
  QPrintDialog dialog(&printer, WindowInFront());
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  return dialog.exec() == QDialog::Accepted;
}

void QtUserDialogs::ShowPreview(QPrinter& printer, const PagePainter& paint) {
  constexpr QSize kSize(900, 1000);
  QPrintPreviewDialog dialog(&printer, WindowInFront());
  dialog.resize(kSize.boundedTo(dialog.screen()->availableSize()));
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&paint](QPrinter* shown) { paint(*shown); });
  dialog.exec();
}

// Where Set GRH writes them.
QString QtUserDialogs::ChooseGraphFile() {
  const QDir installed(QString::fromStdString(session_.installFolder));
  return ChooseFile(installed.filePath(QStringLiteral("data")), QStringLiteral("GRH (*.grh)"),
                    QFileDialog::AcceptOpen);
}

}  // namespace zentab::app

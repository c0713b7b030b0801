#include "app/widgets/qt_user_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>

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

// Asked from a dialog of the main window, a question belongs in front of that dialog.
QWidget* QtUserDialogs::WindowInFront() const {
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog != nullptr ? dialog : parent_;
}

QString QtUserDialogs::ChooseFile(QFileDialog::AcceptMode mode) {
  // Where table files are kept.
  QFileDialog dialog(WindowInFront(), QString(), QString::fromStdString(session_.installFolder),
                     QStringLiteral("Dat (*.dat)"));
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  dialog.setAcceptMode(mode);
  if (mode == QFileDialog::AcceptOpen) dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(QStringLiteral("dat"));
  // Entries are added to an existing file: there is nothing to be replaced.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString QtUserDialogs::ChooseTableFile() { return ChooseFile(QFileDialog::AcceptOpen); }

QString QtUserDialogs::ChooseTargetFile() { return ChooseFile(QFileDialog::AcceptSave); }

QString QtUserDialogs::ChooseGraphFile() {
  // Where Set GRH writes them.
  const QDir installed(QString::fromStdString(session_.installFolder));
  return QFileDialog::getOpenFileName(WindowInFront(), QString(),
                                      installed.filePath(QStringLiteral("data")),
                                      QStringLiteral("GRH (*.grh)"));
}

}  // namespace zentab::app

#include "app/widgets/qt_user_dialogs.h"

#include <QFileDialog>
#include <QMessageBox>

namespace zentab::app {
namespace {

// Plain text: an entry's name may hold anything, also what looks like markup.
QMessageBox::StandardButton Show(QWidget* parent, QMessageBox::Icon icon,
                                 QMessageBox::StandardButtons buttons, const MessageText& message) {
  QMessageBox box(icon, QString::fromStdString(message.title), QString::fromStdString(message.text),
                  buttons, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::Ok);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

bool QtUserDialogs::Confirm(const MessageText& message) {
  return Show(parent_, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, message) ==
         QMessageBox::Ok;
}

void QtUserDialogs::Inform(const MessageText& message) {
  Show(parent_, QMessageBox::Information, QMessageBox::Ok, message);
}

QString QtUserDialogs::ChooseTableFile() {
  // The working folder is the installation folder, where table files are kept.
  return QFileDialog::getOpenFileName(parent_, QString(), QStringLiteral("."),
                                      QStringLiteral("Dat (*.dat)"));
}

}  // namespace zentab::app

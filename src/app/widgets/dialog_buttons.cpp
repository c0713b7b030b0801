#include "app/widgets/dialog_buttons.h"

#include <QDialog>
#include <QIcon>
#include <QPushButton>

namespace zentab::app {

QDialogButtonBox* MakeDialogButtons(const Session& session, QDialog& dialog) {
  auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  const std::pair<QDialogButtonBox::StandardButton, const std::string*> captions[] = {
      {QDialogButtonBox::Ok, &session.texts.program.ok},
      {QDialogButtonBox::Cancel, &session.texts.program.cancel}};
  for (const auto& [button, caption] : captions) {
    box->button(button)->setText(QString::fromStdString(*caption));
    // As everywhere in the window: words alone.
    box->button(button)->setIcon(QIcon());
  }
  QObject::connect(box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return box;
}

}  // namespace zentab::app

#include "app/widgets/table/number_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/widgets/dialog_buttons.h"
#include "texts/number_text.h"

namespace zentab::app {

NumberDialog::NumberDialog(const NumberQuestion& question, const Session& session, QWidget* parent)
    : QDialog(parent), accepts_(question.accepts), session_(session), field_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("FormNumber"));
  setWindowTitle(question.title);
  auto* const label = new QLabel(question.label, this);
  label->setBuddy(field_);
  field_->setObjectName(QStringLiteral("TextNumber"));
  field_->setAccessibleName(question.label);
  field_->setAccessibleDescription(question.title);
  field_->setText(
      QString::fromStdString(texts::NumberText(question.number, session.localeDecimalSeparator)));
  field_->selectAll();
  QDialogButtonBox* const buttons = MakeDialogButtons(session, *this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  connect(field_, &QLineEdit::textChanged, this,
          [this, ok] { ok->setEnabled(Number().has_value()); });
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(field_);
  layout->addWidget(buttons);
}

std::optional<double> NumberDialog::Number() const {
  const std::string text = field_->text().toStdString();
  const std::optional<double> number =
      texts::WholeNumber(texts::FileNumber(text, session_.localeDecimalSeparator));
  return number && accepts_(*number) ? number : std::nullopt;
}

}  // namespace zentab::app

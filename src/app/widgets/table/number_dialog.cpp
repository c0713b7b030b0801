#include "app/widgets/table/number_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  ok->setText(QString::fromStdString(session.texts.program.ok));
  buttons->button(QDialogButtonBox::Cancel)
      ->setText(QString::fromStdString(session.texts.program.cancel));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
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

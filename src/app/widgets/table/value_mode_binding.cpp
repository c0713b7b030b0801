#include "app/widgets/table/value_mode_binding.h"

#include <QCheckBox>
#include <QLineEdit>

#include "app/widgets/table/table_panel.h"

namespace zentab::app {

ValueModeBinding::ValueModeBinding(Session& session, TablePanel& panel)
    : session_(session), panel_(panel) {
  connect(panel.check1, &QCheckBox::toggled, this, &ValueModeBinding::Take);
  connect(panel.check2, &QCheckBox::toggled, this, &ValueModeBinding::Take);
  connect(panel.text2, &QLineEdit::textChanged, this, &ValueModeBinding::Take);
  connect(panel.text3, &QLineEdit::textChanged, this, &ValueModeBinding::TakeMultiplier);
  connect(panel.text3, &QLineEdit::editingFinished, this, &ValueModeBinding::LeaveMultiplier);
}

void ValueModeBinding::LeaveMultiplier() const {
  const std::string text = panel_.text3->text().toStdString();
  if (editor::MultiplierWhenLeft(text, session_.localeDecimalSeparator).empty())
    panel_.text3->clear();
}

void ValueModeBinding::Show() {
  showing_ = true;
  panel_.check1->setChecked(session_.modes.absoluteValues);
  panel_.check2->setChecked(session_.modes.milliseconds);
  panel_.text2->setText(QString::fromStdString(session_.modes.pickup));
  panel_.text3->setText(QString::fromStdString(session_.modes.multiplier));
  showing_ = false;
}

void ValueModeBinding::Take() {
  if (showing_) return;
  session_.modes.absoluteValues = panel_.check1->isChecked();
  session_.modes.milliseconds = panel_.check2->isChecked();
  session_.modes.pickup = panel_.text2->text().toStdString();
  Q_EMIT Changed();
}

void ValueModeBinding::TakeMultiplier() {
  const std::string text = panel_.text3->text().toStdString();
  session_.modes.multiplier = editor::MultiplierWhileTyping(text, session_.localeDecimalSeparator);
  if (session_.modes.multiplier.empty() && !text.empty()) panel_.text3->clear();
}

}  // namespace zentab::app

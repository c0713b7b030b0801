#include "app/widgets/table/value_mode_binding.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <utility>

#include "app/widgets/table/table_panel.h"
#include "editor/widgets/field_undo.h"

namespace zentab::app {

ValueModeBinding::ValueModeBinding(Session& session, TablePanel& panel)
    : session_(session), panel_(panel) {
  const auto follow = [this](QCheckBox* box, editor::EditStep step) {
    connect(box, &QCheckBox::toggled, this, [this, step] {
      if (!showing_) Q_EMIT AboutToChange(step);
      Take();
    });
  };
  follow(panel.check1, editor::EditStep::AbsoluteValues);
  follow(panel.check2, editor::EditStep::TimeUnit);
  FollowField(panel.text2, editor::EditStep::Pickup);
  FollowField(panel.text3, editor::EditStep::Multiplier);
  connect(panel.text2, &QLineEdit::textChanged, this, &ValueModeBinding::Take);
  connect(panel.text3, &QLineEdit::textChanged, this, &ValueModeBinding::TakeMultiplier);
  connect(panel.text3, &QLineEdit::editingFinished, this, &ValueModeBinding::LeaveMultiplier);
}

// What is typed before a field is left is one step. Its own undo comes first.
void ValueModeBinding::FollowField(QLineEdit* field, editor::EditStep step) {
  connect(field, &QLineEdit::textEdited, this, [this, step] {
    if (std::exchange(typing_, step) != step) Q_EMIT AboutToChange(step);
  });
  connect(field, &QLineEdit::editingFinished, this, [this, field] {
    typing_.reset();
    // Its own undo does not reach behind what has been done since: a text that is set has none.
    const QSignalBlocker own(field);
    field->setText(field->text());
  });
  field->installEventFilter(this);
}

bool ValueModeBinding::eventFilter(QObject* watched, QEvent* event) {
  return editor::TakesUndoKey(*static_cast<QLineEdit*>(watched), *event) ||
         QObject::eventFilter(watched, event);
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
  typing_.reset();
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
  if (!showing_) Q_EMIT Changed();
}

}  // namespace zentab::app

#include "app/widgets/value_mode_binding.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

#include "app/widgets/table_panel.h"

namespace zentab::app {

ValueModeBinding::ValueModeBinding(Session& session, TablePanel& panel)
    : session_(session), panel_(panel) {
  for (QAbstractButton* const control :
       {static_cast<QAbstractButton*>(panel.check1), static_cast<QAbstractButton*>(panel.check2),
        static_cast<QAbstractButton*>(panel.option1), static_cast<QAbstractButton*>(panel.option2),
        static_cast<QAbstractButton*>(panel.option3)}) {
    connect(control, &QAbstractButton::toggled, this, &ValueModeBinding::Take);
  }
  connect(panel.text2, &QLineEdit::textChanged, this, &ValueModeBinding::Take);
}

void ValueModeBinding::Show() {
  showing_ = true;
  panel_.check1->setChecked(session_.modes.absoluteValues);
  panel_.check2->setChecked(session_.modes.milliseconds);
  panel_.option1->setChecked(session_.instrument == tables::Instrument::Current);
  panel_.option2->setChecked(session_.instrument == tables::Instrument::Voltage);
  panel_.text2->setText(QString::fromStdString(session_.modes.pickup));
  showing_ = false;
}

void ValueModeBinding::Take() {
  if (showing_) return;
  session_.modes.absoluteValues = panel_.check1->isChecked();
  session_.modes.milliseconds = panel_.check2->isChecked();
  session_.modes.pickup = panel_.text2->text().toStdString();
  const tables::Instrument before = session_.instrument;
  session_.instrument = panel_.option1->isChecked()   ? tables::Instrument::Current
                        : panel_.option2->isChecked() ? tables::Instrument::Voltage
                                                      : tables::Instrument::None;
  Q_EMIT Changed();
  if (session_.instrument != before) Q_EMIT InstrumentChosen();
}

}  // namespace zentab::app

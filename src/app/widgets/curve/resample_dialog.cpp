#include "app/widgets/curve/resample_dialog.h"

#include <QFormLayout>
#include <QVBoxLayout>

#include "app/curve_reduction.h"
#include "app/session_texts.h"
#include "app/widgets/curve/form_fields.h"

namespace zentab::app {

ResampleDialog::ResampleDialog(const Session& session, editor::PreviewCurve& preview,
                               const FormValues& last, bool logarithmic, QWidget* parent)
    : CurveDialog("FormResample", session, preview, parent), logarithmic_(logarithmic) {
  auto* const form = new QFormLayout;
  Content().addLayout(form);
  Content().addStretch(1);
  fields_ = new FormFields(*form, this);
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  fields_->AddChoice(
      "spacing", texts.spacing,
      {{"log", texts.logarithmic}, {"linear", texts.linear}, {"given", texts.given}});
  const std::pair<const char*, const std::string*> rows[] = {
      {"from", &texts.from}, {"to", &texts.to}, {"points", &texts.points}, {"loads", &texts.loads}};
  for (const auto& [name, label] : rows) {
    fields_->AddText(name, Expanded(session, *label, {LoadUnit(session)}));
  }
  // The range is that of each table; how many points and where is the user's habit.
  FormValues values = FirstResampleValues(session);
  for (const char* const field : {"spacing", "points", "loads"}) {
    if (!ValueOf(last, field).empty()) values[field] = ValueOf(last, field);
  }
  fields_->Set(values);
  FollowFields();
  fields_->Field("spacing")->setFocus();
  connect(fields_, &FormFields::Changed, this, &ResampleDialog::FollowFields);
}

void ResampleDialog::FollowFields() {
  const FormValues values = Values();
  for (const char* const field : {"from", "to", "points", "loads"}) {
    fields_->ShowRow(field, HasField(field, curves::Family::IecA, ValueOf(values, "spacing")));
  }
  Refresh();
}

FormValues ResampleDialog::Values() const { return fields_->Values(); }

CurveDialog::Proposed ResampleDialog::Propose() {
  return ProposeResampled(Values(), CurrentSession(), logarithmic_);
}

}  // namespace zentab::app

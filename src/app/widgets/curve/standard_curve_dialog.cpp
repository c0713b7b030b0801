#include "app/widgets/curve/standard_curve_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/curve/form_fields.h"
#include "app/widgets/equation/equation_field.h"
#include "app/widgets/qt_text.h"

namespace zentab::app {
namespace {

using curves::Family;

// As a switch of a form has it.
std::string_view Absolute(const Session& session) {
  return session.modes.absoluteValues ? "1" : "0";
}

// Loads that were meant in another unit are none for this table.
FormValues Usable(FormValues last, const Session& session) {
  if (ValueOf(last, "absolute") == Absolute(session)) return last;
  for (const char* const field : {"from", "to", "loads"}) last.erase(field);
  return last;
}

}  // namespace

StandardCurveDialog::StandardCurveDialog(const Session& session, editor::PreviewCurve& preview,
                                         const FormValues& last, FormValues own, KeepOwn keepOwn,
                                         QWidget* parent)
    : CurveDialog("FormCurve", session, preview, parent),
      keepOwn_(std::move(keepOwn)),
      own_(std::move(own)),
      form_(new QFormLayout) {
  fields_ = new FormFields(*form_, this);
  Content().addLayout(form_);
  form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  BuildFields();
  ListOwn();
  const FormValues usable = Usable(last, session);
  family_ = FamilyIn(usable);
  FormValues values = FirstCurveValues(family_, session);
  for (const auto& [field, value] : usable) values[field] = value;
  fields_->Set(values);
  FollowFields();
  fields_->Field("family")->setFocus();
  connect(fields_, &FormFields::Changed, this, &StandardCurveDialog::FollowFields);
}

void StandardCurveDialog::BuildFields() {
  const Session& session = CurrentSession();
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  FormFields::Choices families;
  for (const curves::FamilyRow& row : curves::Families()) {
    families.emplace_back(std::string(row.id), session.texts.curve.*row.name);
  }
  fields_->AddChoice("family", texts.family, families);
  formula_ = new QLabel(this);
  formula_->setForegroundRole(QPalette::PlaceholderText);
  form_->addRow(QString(), formula_);
  BuildOwnRow();
  for (const CurveFieldRow& row : CurveFields()) {
    if (row.name == "start") fields_->AddHeading(texts.limitsHeading);
    if (row.name == "from") {
      fields_->AddHeading(texts.loadsHeading);
      const std::string* const captions[] = {&texts.logarithmic, &texts.linear, &texts.best,
                                             &texts.given};
      FormFields::Choices spacings;
      for (std::size_t at = 0; at < std::size(kSpacings); ++at) {
        spacings.emplace_back(std::string(kSpacings[at]), *captions[at]);
      }
      fields_->AddChoice("spacing", texts.spacing, spacings);
    }
    const std::string label = Expanded(session, texts.*row.label, {LoadUnit(session)});
    if (row.name == "equation") {
      BuildEquation(label);
    } else {
      fields_->AddText(row.name, label);
    }
  }
}

void StandardCurveDialog::BuildEquation(const std::string& label) {
  const Session& session = CurrentSession();
  equation_ = new EquationField(session, CharacteristicVariables(session), this);
  fields_->AddText("equation", label, equation_);
  equationFault_ = new QLabel(this);
  equationFault_->setObjectName(QStringLiteral("LabelEquation"));
  equationFault_->setWordWrap(true);
  equation_->setToolTip(
      ToQt(Expanded(session, session.texts.curveDialogs.equationHint, {LoadUnit(session)})));
  form_->addRow(QString(), equationFault_);
}

void StandardCurveDialog::BuildOwnRow() {
  const texts::CurveDialogTexts& texts = CurrentSession().texts.curveDialogs;
  ownRow_ = new QWidget(this);
  auto* const row = new QHBoxLayout(ownRow_);
  row->setContentsMargins(0, 0, 0, 0);
  ownName_ = new QComboBox(ownRow_);
  ownName_->setObjectName(QStringLiteral("Field_name"));
  ownName_->setEditable(true);
  ownName_->setInsertPolicy(QComboBox::NoInsert);
  auto* const keep = new QPushButton(ToQt(texts.keepOwn), ownRow_);
  keep->setObjectName(QStringLiteral("CommandKeep"));
  keep->setAutoDefault(false);
  row->addWidget(ownName_, 1);
  row->addWidget(keep);
  auto* const label = new QLabel(ToQt(texts.ownName), this);
  label->setBuddy(ownName_);
  ownName_->setAccessibleName(PlainCaption(label->text()));
  form_->addRow(label, ownRow_);
  connect(ownName_, &QComboBox::activated, this, &StandardCurveDialog::TakeOwn);
  connect(keep, &QPushButton::clicked, this, &StandardCurveDialog::KeepOwnNow);
}

void StandardCurveDialog::ListOwn() {
  const QString shown = ownName_->currentText();
  ownName_->clear();
  for (const OwnConstants& own : OwnConstantsIn(own_)) ownName_->addItem(ToQt(own.name));
  ownName_->setEditText(shown);
}

void StandardCurveDialog::TakeOwn(int index) {
  const std::vector<OwnConstants> all = OwnConstantsIn(own_);
  if (index < 0 || static_cast<std::size_t>(index) >= all.size()) return;
  fields_->Set(ConstantValues(all[static_cast<std::size_t>(index)].constants, CurrentSession()));
}

void StandardCurveDialog::KeepOwnNow() {
  const std::string name = ownName_->currentText().trimmed().toStdString();
  const auto curve = CharacteristicIn(Values(), CurrentSession());
  const auto* const made = std::get_if<curves::CharacteristicCurve>(&curve);
  if (name.empty() || made == nullptr) return;
  KeepOwnConstants({name, made->Settings().constants}, own_);
  keepOwn_(own_);
  ListOwn();
}

// What the fields of another family hold at first; the rest stays as the user has it.
void StandardCurveDialog::FillForFamily(Family former) {
  const FormValues first = FirstCurveValues(family_, CurrentSession());
  FormValues changed;
  if (curves::RowOf(family_).hasOwnConstants) {
    for (const char* const field : {"k", "alpha", "c"}) changed[field] = ValueOf(first, field);
  }
  if (curves::TripsBelow(family_) != curves::TripsBelow(former)) {
    for (const char* const field : {"from", "to"}) changed[field] = ValueOf(first, field);
  }
  fields_->Set(changed);
}

void StandardCurveDialog::FollowFields() {
  const FormValues values = Values();
  const Family family = FamilyIn(values);
  if (family != family_) {
    const Family former = std::exchange(family_, family);
    FillForFamily(former);
    return;
  }
  const std::string& spacing = ValueOf(values, "spacing");
  for (const CurveFieldRow& row : CurveFields()) {
    fields_->ShowRow(row.name, HasField(row.name, family, spacing));
  }
  form_->setRowVisible(ownRow_, family == Family::Own);
  form_->setRowVisible(equationFault_, family == Family::Equation);
  const curves::FamilyRow& row = curves::RowOf(family);
  formula_->setText(ToQt(row.formula) + '\n' + ToQt(row.source));
  Refresh();
  adjustSize();
}

FormValues StandardCurveDialog::Values() const {
  FormValues values = fields_->Values();
  values.insert_or_assign("absolute", std::string(Absolute(CurrentSession())));
  return values;
}

CurveDialog::Proposed StandardCurveDialog::Propose() {
  equationFault_->clear();
  const EquationRemark& remark = equation_->Remark();
  if (FamilyIn(Values()) == Family::Equation && remark.isFault) {
    return FormFault{"equation", remark.text};
  }
  return ProposeCurve(Values(), CurrentSession());
}

QLabel* StandardCurveDialog::PlaceFor(const FormFault& fault) {
  return fault.field == "equation" ? equationFault_ : nullptr;
}

}  // namespace zentab::app

#include "app/widgets/curve/form_fields.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "app/widgets/accessible_names.h"
#include "app/widgets/qt_text.h"

namespace zentab::app {
namespace {

constexpr int kTextWidth = 110;

}  // namespace

FormFields::FormFields(QFormLayout& form, QWidget* parent)
    : QObject(parent), form_(form), parent_(parent) {}

void FormFields::Add(std::string_view name, const std::string& label, QWidget* field) {
  field->setObjectName(QLatin1String("Field_") + ToQt(name));
  auto* const caption = new QLabel(ToQt(label), parent_);
  caption->setBuddy(field);
  field->setAccessibleName(PlainCaption(caption->text()));
  form_.addRow(caption, field);
}

QLineEdit* FormFields::AddText(std::string_view name, const std::string& label) {
  auto* const field = new QLineEdit(parent_);
  AddText(name, label, field);
  return field;
}

void FormFields::AddText(std::string_view name, const std::string& label, QLineEdit* field) {
  field->setMinimumWidth(kTextWidth);
  Add(name, label, field);
  texts_[std::string(name)] = field;
  connect(field, &QLineEdit::textChanged, this, &FormFields::Changed);
}

QComboBox* FormFields::AddChoice(std::string_view name, const std::string& label,
                                 const Choices& choices) {
  auto* const field = new QComboBox(parent_);
  for (const auto& [id, text] : choices) field->addItem(ToQt(text), ToQt(id));
  Add(name, label, field);
  choices_[std::string(name)] = field;
  connect(field, &QComboBox::currentIndexChanged, this, &FormFields::Changed);
  return field;
}

void FormFields::AddHeading(const std::string& text) {
  auto* const heading = new QLabel(ToQt(text), parent_);
  QFont font = heading->font();
  font.setBold(true);
  heading->setFont(font);
  heading->setContentsMargins(0, 8, 0, 0);
  form_.addRow(heading);
}

QWidget* FormFields::Field(std::string_view name) const {
  if (const auto text = texts_.find(name); text != texts_.end()) return text->second;
  const auto choice = choices_.find(name);
  return choice == choices_.end() ? nullptr : choice->second;
}

void FormFields::ShowRow(std::string_view name, bool shown) {
  if (QWidget* const field = Field(name)) form_.setRowVisible(field, shown);
}

FormValues FormFields::Values() const {
  FormValues values;
  for (const auto& [name, field] : texts_) values[name] = field->text().toStdString();
  for (const auto& [name, field] : choices_) {
    values[name] = field->currentData().toString().toStdString();
  }
  return values;
}

void FormFields::Set(const FormValues& values) {
  {
    const QSignalBlocker quiet(this);
    for (const auto& [name, value] : values) {
      if (const auto text = texts_.find(name); text != texts_.end()) {
        text->second->setText(ToQt(value));
      }
      const auto choice = choices_.find(name);
      if (choice == choices_.end()) continue;
      const int index = choice->second->findData(ToQt(value));
      if (index >= 0) choice->second->setCurrentIndex(index);
    }
  }
  Q_EMIT Changed();
}

}  // namespace zentab::app

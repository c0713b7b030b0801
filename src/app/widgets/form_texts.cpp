#include "app/widgets/form_texts.h"

#include <QMetaProperty>

namespace zentab::app {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A control's caption is the one of these properties that it has.
const char* CaptionProperty(const QObject& control) {
  for (const char* const name : {"text", "title"}) {
    if (control.metaObject()->indexOfProperty(name) >= 0) return name;
  }
  return "windowTitle";
}

}  // namespace

FormTexts::FormTexts(QMainWindow& form) {
  controls_.insert(form.objectName(), &form);
  for (QObject* const child : form.findChildren<QObject*>()) {
    if (!child->objectName().isEmpty()) controls_.insert(child->objectName(), child);
  }
}

QObject* FormTexts::Find(std::string_view control) const {
  return controls_.value(ToQt(control), nullptr);
}

void FormTexts::SetProperty(std::string_view control, const char* property, const QVariant& value) {
  if (QObject* const found = Find(control)) found->setProperty(property, value);
}

void FormTexts::SetCaption(std::string_view control, std::string_view text) {
  if (const QObject* const found = Find(control)) {
    SetProperty(control, CaptionProperty(*found), ToQt(text));
  }
}

void FormTexts::SetTooltip(std::string_view control, std::string_view text) {
  SetProperty(control, "toolTip", ToQt(text));
}

void FormTexts::SetShown(std::string_view control, bool shown) {
  SetProperty(control, "visible", shown);
}

void FormTexts::SetPlaceholder(std::string_view control, std::string_view text) {
  SetProperty(control, "placeholderText", ToQt(text));
}

void FormTexts::SetSpokenName(std::string_view control, std::string_view text) {
  SetProperty(control, "accessibleName", ToQt(text));
}

std::string FormTexts::Caption(std::string_view control) const {
  const QObject* const found = Find(control);
  return found == nullptr ? std::string()
                          : found->property(CaptionProperty(*found)).toString().toStdString();
}

}  // namespace zentab::app

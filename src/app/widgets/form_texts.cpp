#include "app/widgets/form_texts.h"

#include <QMetaProperty>
#include <algorithm>

#include "app/widgets/qt_text.h"

namespace zentab::app {
namespace {

// Words of catalogues that others show, as soon as there are some: they follow the instrument. The
// title has the name of a file behind it before any catalogue has given another one.
constexpr std::pair<const char*, const char*> kSetByOthers[] = {
    {"Command5", "text"}, {"Command5", "toolTip"}, {"Text2", "toolTip"}, {"LabelText2", "text"}};

// A control's caption is the one of these properties that it has.
const char* CaptionProperty(const QObject& control) {
  for (const char* const name : {"text", "title"}) {
    if (control.metaObject()->indexOfProperty(name) >= 0) return name;
  }
  return "windowTitle";
}

}  // namespace

FormTexts::FormTexts(QMainWindow& form) : former_({{&form, "windowTitle", form.windowTitle()}}) {
  controls_.insert(form.objectName(), &form);
  for (QObject* const child : form.findChildren<QObject*>()) {
    if (!child->objectName().isEmpty()) controls_.insert(child->objectName(), child);
  }
  for (const auto& [name, property] : kSetByOthers) {
    if (QObject* const control = Find(name)) {
      former_.push_back({control, property, control->property(property)});
    }
  }
}

QObject* FormTexts::Find(std::string_view control) const {
  return controls_.value(ToQt(control), nullptr);
}

void FormTexts::SetProperty(std::string_view control, const char* property, const QVariant& value) {
  if (QObject* const found = Find(control)) found->setProperty(property, value);
}

void FormTexts::SetWord(std::string_view control, const char* property, std::string_view text) {
  QObject* const found = Find(control);
  if (found == nullptr) return;
  const bool isKnown = std::ranges::any_of(former_, [&](const FormerWord& word) {
    return word.control == found && std::string_view(word.property) == property;
  });
  if (!isKnown) former_.push_back({found, property, found->property(property)});
  found->setProperty(property, ToQt(text));
}

void FormTexts::ForgetWords() {
  for (const FormerWord& word : former_) {
    if (word.control != nullptr) word.control->setProperty(word.property, word.value);
  }
}

void FormTexts::SetCaption(std::string_view control, std::string_view text) {
  if (const QObject* const found = Find(control)) {
    SetWord(control, CaptionProperty(*found), text);
  }
}

void FormTexts::SetContent(std::string_view control, std::string_view text) {
  SetProperty(control, "text", ToQt(text));
}

void FormTexts::SetTooltip(std::string_view control, std::string_view text) {
  SetWord(control, "toolTip", text);
}

void FormTexts::SetShown(std::string_view control, bool shown) {
  SetProperty(control, "visible", shown);
}

void FormTexts::SetPlaceholder(std::string_view control, std::string_view text) {
  SetWord(control, "placeholderText", text);
}

void FormTexts::SetSpokenName(std::string_view control, std::string_view text) {
  SetWord(control, "accessibleName", text);
}

std::string FormTexts::Caption(std::string_view control) const {
  const QObject* const found = Find(control);
  return found == nullptr ? std::string()
                          : found->property(CaptionProperty(*found)).toString().toStdString();
}

}  // namespace zentab::app

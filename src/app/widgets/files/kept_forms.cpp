#include "app/widgets/files/kept_forms.h"

namespace zentab::app {

KeptForms::KeptForms(ResponsiveFiles& files, platform::SettingsStore& store, std::string title)
    : files_(files), store_(store), title_(std::move(title)) {}

// A call that hangs may outlive this one: it owns what it is given.
FormValues KeptForms::Last(std::string_view form) const {
  const auto load = [&store = store_, title = title_, form = std::string(form)] {
    return LoadForm(store, title, form);
  };
  return platform::AskFor(files_, load).value_or(FormValues());
}

void KeptForms::Keep(std::string_view form, const FormValues& values) const {
  const auto save = [&store = store_, title = title_, form = std::string(form), values] {
    return SaveForm(store, title, form, values);
  };
  // Nothing that the user has is lost.
  [[maybe_unused]] const std::error_code dropped = files_.Ask(save);
}

}  // namespace zentab::app

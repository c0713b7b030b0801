#pragma once

#include <string>
#include <string_view>

#include "app/form_values.h"
#include "app/widgets/files/responsive_files.h"
#include "platform/settings_store.h"

namespace zentab::app {

/// What dialogs were confirmed with last, in the user's settings, which are a file as others are.
class KeptForms {
 public:
  /// `title` is the program's title, under which the values are kept.
  KeptForms(ResponsiveFiles& files, platform::SettingsStore& store, std::string title);

  /// None where none are kept or the settings cannot be read.
  [[nodiscard]] FormValues Last(std::string_view form) const;
  /// Where that fails the dialog begins with other values the next time.
  void Keep(std::string_view form, const FormValues& values) const;

 private:
  ResponsiveFiles& files_;
  platform::SettingsStore& store_;
  std::string title_;
};

}  // namespace zentab::app

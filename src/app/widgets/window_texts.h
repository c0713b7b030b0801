#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <system_error>
#include <vector>

#include "app/session.h"
#include "app/widgets/form_texts.h"
#include "platform/file_layer.h"

namespace zentab::app {

/// The texts of the main window and its session: those that are built in, then those of the
/// catalogues in their order. It knows the controls that the window has when this is made, with
/// their built-in captions.
class WindowTexts {
 public:
  /// What is told where a catalogue cannot be read.
  using Failure = std::function<void(std::error_code)>;

  /// All but `form` and the moved ones outlive this.
  WindowTexts(QMainWindow& form, Session& session, platform::FileLayer& files, Failure failed);

  /// Applies a catalogue with all that it sets.
  void Apply(const std::filesystem::path& catalogue);
  /// Has the words of these catalogues alone, in their order; what others have set stays.
  void ShowWords(const std::vector<std::filesystem::path>& catalogues);

 private:
  void Apply(const std::filesystem::path& catalogue, texts::Extent extent);

  Session& session_;
  platform::FileLayer& files_;
  Failure failed_;
  FormTexts form_;
};

}  // namespace zentab::app

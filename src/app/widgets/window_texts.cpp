#include "app/widgets/window_texts.h"

#include "app/session_texts.h"

namespace zentab::app {

WindowTexts::WindowTexts(QMainWindow& form, Session& session, platform::FileLayer& files,
                         Failure failed)
    : session_(session), files_(files), failed_(std::move(failed)), form_(form) {}

void WindowTexts::Apply(const std::filesystem::path& catalogue) {
  Apply(catalogue, texts::Extent::WordsAndSettings);
}

void WindowTexts::ShowWords(const std::vector<std::filesystem::path>& catalogues) {
  form_.ForgetWords();
  texts::ForgetWords(session_.texts);
  for (const std::filesystem::path& catalogue : catalogues) Apply(catalogue, texts::Extent::Words);
}

void WindowTexts::Apply(const std::filesystem::path& catalogue, texts::Extent extent) {
  const std::error_code error = texts::ApplyTexts(
      files_, catalogue, form_, session_.texts,
      [this](std::string_view text) { return Expanded(session_, text); }, extent);
  // Most places for a catalogue have none.
  if (error && error != std::errc::no_such_file_or_directory) failed_(error);
}

}  // namespace zentab::app

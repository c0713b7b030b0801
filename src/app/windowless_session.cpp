#include "app/windowless_session.h"

#include <map>
#include <vector>

#include "app/languages.h"
#include "app/session_texts.h"
#include "app/start_up.h"
#include "platform/file_layer.h"
#include "platform/locale_queries.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

// Of a window's controls only the captions that name the instruments count.
class InstrumentChoices : public texts::TextTarget {
 public:
  explicit InstrumentChoices(const texts::CatalogueTexts& texts) {
    for (std::size_t kind = 1; kind < texts.instruments.size(); ++kind) {
      captions_["Option" + std::to_string(kind)] = texts.instruments[kind].name;
    }
  }

  void SetCaption(std::string_view control, std::string_view text) override {
    if (const auto choice = captions_.find(control); choice != captions_.end()) {
      choice->second = text;
    }
  }
  void SetTooltip(std::string_view, std::string_view) override {}
  void SetShown(std::string_view, bool) override {}
  void SetPlaceholder(std::string_view, std::string_view) override {}
  void SetSpokenName(std::string_view, std::string_view) override {}
  [[nodiscard]] std::string Caption(std::string_view control) const override {
    const auto choice = captions_.find(control);
    return choice == captions_.end() ? std::string() : choice->second;
  }

 private:
  std::map<std::string, std::string, std::less<>> captions_;
};

}  // namespace

Session WindowlessSession(const Settings& settings, const platform::Registry& registry,
                          const std::filesystem::path& executable,
                          const std::filesystem::path& language) {
  Session session;
  session.baseName = platform::BaseName(executable);
  session.installFolder = FindInstallFolder(registry, executable);
  session.localeDecimalSeparator = DecimalSeparatorFrom(platform::UserDecimalSeparator());
  session.tablePath = settings.tableName;
  session.texts.instruments[1].name = "Current";
  session.texts.instruments[2].name = "Voltage";
  const std::vector<std::filesystem::path> catalogues =
      CatalogueCandidates(session.installFolder, executable);
  const auto take = [&session](const std::filesystem::path& catalogue, texts::Extent extent) {
    // Most places for a catalogue have none.
    [[maybe_unused]] const std::error_code dropped = TakeTexts(session, catalogue, extent);
  };
  for (const auto& catalogue : catalogues) take(catalogue, texts::Extent::WordsAndSettings);
  if (language.empty()) return session;
  for (const auto& catalogue : OrderOfWords(catalogues, language)) {
    take(catalogue, texts::Extent::Words);
  }
  return session;
}

std::error_code TakeTexts(Session& session, const std::filesystem::path& catalogue,
                          texts::Extent extent) {
  InstrumentChoices choices(session.texts);
  return texts::ApplyTexts(
      platform::SystemFiles(), catalogue, choices, session.texts,
      [&session](std::string_view text) { return Expanded(session, text); }, extent);
}

}  // namespace zentab::app

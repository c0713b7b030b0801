#include "app/languages.h"

#include <algorithm>
#include <tuple>

#include "app/start_up.h"
#include "platform/file_layer.h"
#include "platform/paths.h"
#include "texts/text_catalogue.h"

namespace zentab::app {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kViewSection = "View";
constexpr std::string_view kKey = "Language";

fs::path FolderOf(const fs::path& executable) { return executable.parent_path() / "catalogues"; }

}  // namespace

std::vector<Language> ShippedLanguages(const fs::path& executable) {
  std::vector<Language> languages;
  std::error_code error;
  for (auto at = fs::directory_iterator(FolderOf(executable), error);
       !error && at != fs::directory_iterator(); at.increment(error)) {
    std::string name;
    if (at->path().extension() != ".txt") continue;
    const std::error_code unread =
        texts::LookupText(platform::SystemFiles(), "LANGUAGE.NAME", at->path(), name);
    if (!unread && !name.empty()) languages.push_back({at->path(), name});
  }
  std::ranges::sort(languages, [](const Language& a, const Language& b) {
    return std::tie(a.name, a.file) < std::tie(b.name, b.file);
  });
  return languages;
}

std::vector<fs::path> OrderOfWords(const std::vector<fs::path>& catalogues,
                                   const fs::path& language) {
  std::vector<fs::path> order = catalogues;
  if (language.empty()) return order;
  const auto standard = order.begin() + kDefaultCatalogue;
  std::rotate(order.begin(), standard, standard + 1);
  order.insert(order.begin() + 1, language);
  return order;
}

fs::path KeptLanguage(const platform::SettingsStore& store, std::string_view title,
                      const fs::path& executable) {
  const fs::path name =
      platform::ToPath(store.Read(title, kViewSection, kKey).value_or("")).filename();
  std::error_code missing;
  const fs::path file = FolderOf(executable) / name;
  return !name.empty() && fs::is_regular_file(file, missing) ? file : fs::path();
}

std::error_code KeepLanguage(platform::SettingsStore& store, std::string_view title,
                             const fs::path& language) {
  return store.Save(title, kViewSection,
                    {{std::string(kKey), platform::ToText(language.filename())}});
}

}  // namespace zentab::app

#include "app/start_up.h"

#include "platform/locale_queries.h"
#include "platform/paths.h"
#include "texts/number_text.h"
#include "texts/text_catalogue.h"

namespace zentab::app {
namespace {

// Empty where none is known.
std::string SuiteFolder(const platform::Registry& registry) {
  const std::string value =
      registry.ReadRegistryValue(platform::RootKey::LocalMachine, kSuiteKey, kSuiteValue)
          .value_or(std::string());
  return std::string(texts::TrimBlanks(value));
}

std::string InstallFolder(const std::string& suiteFolder, const std::filesystem::path& executable) {
  return platform::ToText(platform::AbsolutePath(
      suiteFolder.empty() ? executable.parent_path() : platform::ToPath(suiteFolder)));
}

}  // namespace

std::string FindInstallFolder(const platform::Registry& registry,
                              const std::filesystem::path& executable) {
  return InstallFolder(SuiteFolder(registry), executable);
}

std::string DecimalSeparatorFrom(const std::optional<std::string>& localeItem) {
  std::string separator = localeItem.value_or(",");
  if (!separator.empty() && static_cast<unsigned char>(separator.back()) < ' ') {
    separator.pop_back();
  }
  const std::string_view trimmed = texts::TrimBlanks(separator);
  // Without a separator every number would lose its point.
  return trimmed.empty() ? "," : std::string(trimmed);
}

std::vector<std::filesystem::path> CatalogueCandidates(const std::string& installFolder,
                                                       const std::filesystem::path& executable) {
  const std::filesystem::path installed = platform::ToPath(installFolder);
  std::string name = platform::BaseName(executable);
  const bool shared = name.ends_with('2');
  if (shared) name.pop_back();
  return {platform::FindFixedName(installed, name + ".dxt"),
          platform::FindFixedName(installed, "FCC.TXT"),
          shared ? platform::FindFixedName(installed, name + ".txt")
                 : texts::DefaultCatalogue(executable),
          platform::FindFixedName(installed, name + "1.txt"),
          platform::FindFixedName(installed, name + "2.txt")};
}

Session StartSession(const Settings& settings, const platform::Registry& registry,
                     const std::filesystem::path& executable) {
  Session session;
  session.baseName = platform::BaseName(executable);
  const std::string suiteFolder = SuiteFolder(registry);
  session.installFolder = InstallFolder(suiteFolder, executable);
  session.isWithoutSuite = suiteFolder.empty();
  [[maybe_unused]] const std::error_code dropped =
      platform::ChangeCurrentFolder(platform::ToPath(session.installFolder));
  session.localeDecimalSeparator = DecimalSeparatorFrom(platform::UserDecimalSeparator());
  session.tablePath = settings.tableName;
  session.modes.absoluteValues = texts::WholeNumber(settings.absValues) == 1.0;
  session.modes.pickup = settings.nomLoad1;
  session.stored = editor::PackPoints(session.table.grid, session.modes);
  return session;
}

}  // namespace zentab::app

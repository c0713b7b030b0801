// The INI files that hold the settings and stand in for the registry. The first line of the input
// has a table file, a pickup value and a window edge to be stored, and a value for the text alone,
// with tabs between them; the file follows.

#include "app/settings.h"
#include "fuzz/fuzzing.h"
#include "platform/ini_text.h"
#include "platform/registry.h"

namespace zentab::fuzz {
namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kKey = "NomLoad1";

void CheckText(std::string_view text, std::string_view value) {
  constexpr std::string_view kOther = "F1Left";
  platform::IniText ini{std::string(text)};
  const std::optional<std::string> other = ini.Find(kSection, kOther);
  const bool fits = value.find_first_of("\r\n") == std::string_view::npos;
  Require(ini.Set(kSection, kKey, value) == fits, "a value is one line");
  if (!fits) {
    Require(ini.Text() == text, "what is refused changes nothing");
    return;
  }
  Require(ini.Find(kSection, kKey) == value, "a value that was set is found");
  Require(ini.Find("SETTINGS", "nomload1") == value, "case does not count");
  Require(ini.Find(kSection, kOther) == other, "other values stay");
  const std::string once = ini.Text();
  Require(ini.Set(kSection, kKey, value) && ini.Text() == once, "setting it again changes nothing");
}

void CheckSettings(const Folder& folder, std::string_view text, app::Settings settings) {
  folder.Write("Zentab.ini", text);
  const auto store = platform::UserSettingsStore();
  if (const std::optional<int> pixels = app::PixelsFromTwips(settings.window.top)) {
    Require(app::PixelsFromTwips(app::TwipsFromPixels(*pixels)) == pixels, "an edge comes back");
  }
  Require(!app::SaveSettings(*store, "Zentab", settings), "settings are saved");
  const app::Settings after = app::LoadSettings(*store, "Zentab", "Zentab");
  Require(after.tableName == settings.tableName && after.nomLoad1 == settings.nomLoad1 &&
              after.window.top == settings.window.top,
          "saved settings are loaded");
}

void CheckRegistry(const Folder& folder, std::string_view text) {
  folder.Write("registry.ini", text);
  constexpr std::size_t kLongestValue = 1023;
  const std::optional<std::string> value = platform::SystemRegistry()->ReadRegistryValue(
      platform::RootKey::LocalMachine, "SOFTWARE\\HALDOR\\MIRAXWIN", "MIRAX");
  if (!value) return;
  Require(value->size() <= kLongestValue && value->find('\0') == std::string::npos,
          "a value is a short text");
}

const Folder& SettingsFolder() {
  static const Folder folder;
  for (const char* const variable : {"ZENTAB_SETTINGS_DIR", "ZENTAB_REGISTRY_DIR"}) {
    ::setenv(variable, folder.Path().c_str(), 1);
  }
  return folder;
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zentab;
  static const fuzz::Folder& folder = fuzz::SettingsFolder();
  std::string_view text = fuzz::InputOf(data, size);
  std::string_view fields = fuzz::TakeLine(text);
  app::Settings settings;
  for (std::string* const field : {&settings.tableName, &settings.nomLoad1, &settings.window.top}) {
    const std::string_view value = fuzz::Take(fields, '\t');
    *field = value.substr(0, value.find('\r'));
  }
  fuzz::CheckText(text, fields);
  fuzz::CheckSettings(folder, text, settings);
  fuzz::CheckRegistry(folder, text);
  return 0;
}

#include "simulated_instrument.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

#include "graph_file.h"
#include "process_changes.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const char* name) {
  std::string portable = name == nullptr ? "" : name;
  std::replace(portable.begin(), portable.end(), '\\', '/');
  return portable;
}

fs::path TextFile(const fs::path& folder) { return folder / "instrument.txt"; }

// What stands behind "key =" in the text file.
std::optional<std::string> Setting(const fs::path& folder, std::string_view key) {
  std::ifstream file(TextFile(folder));
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string name;
    std::string equals;
    if (!(words >> name >> equals) || name != key || equals != "=") continue;
    std::string value;
    std::getline(words >> std::ws, value);
    return value;
  }
  return std::nullopt;
}

int WholeNumber(const fs::path& folder, std::string_view key, int otherwise) {
  const std::string text = Setting(folder, key).value_or("");
  int number = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

bool SimulatedInstrument::Lists(std::string_view key, std::string_view word) const {
  std::istringstream words(Setting(folder_, key).value_or(""));
  for (std::string listed; words >> listed;) {
    if (listed == word) return true;
  }
  return false;
}

void SimulatedInstrument::LeaveChanges() const {
  const bool folder = Lists("leave", "folder");
  if (Lists("leave", "arithmetic")) ChangeArithmetic();
  if (Lists("leave", "locale")) ChangeLocale();
  if (Lists("leave", "signals")) IgnoreSignals();
  // Last: the text file lies below the working folder.
  if (folder) fs::current_path(fs::temp_directory_path());
}

std::int32_t SimulatedInstrument::OpenFiles(const char* dataFolder) {
  folder_ = PathOf(dataFolder);
  open_ = std::ifstream(TextFile(folder_)).is_open() && !Fails("open");
  return open_ ? WholeNumber(folder_, "opened", kDone) : kRefused;
}

float SimulatedInstrument::GetStartUp() const {
  if (!open_ || Fails("pickup")) return 0.0f;
  const std::string text = Setting(folder_, "pickup").value_or("");
  float pickup = 0.0f;
  std::from_chars(text.data(), text.data() + text.size(), pickup);
  return pickup;
}

std::int32_t SimulatedInstrument::CloseFiles() {
  const bool fails = !open_ || Fails("close");
  open_ = false;
  return fails ? kRefused : kDone;
}

std::int32_t SimulatedInstrument::SetRefgraph(std::int32_t graph, const char* file) const {
  if (!open_ || graph != 0 || Fails("refgraph")) return kRefused;
  const std::optional<std::string> bytes = ReadGraphFile(PathOf(file));
  if (!bytes) return kRefused;
  RunWindowEvents(std::chrono::milliseconds(WholeNumber(folder_, "wait", 0)));
  std::ofstream reference(folder_ / "reference.grh", std::ios::binary | std::ios::trunc);
  reference << *bytes << std::flush;
  return reference ? kDone : kRefused;
}

}  // namespace simulator

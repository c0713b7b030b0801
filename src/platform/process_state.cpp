#include "platform/process_state.h"

#include <clocale>
#include <system_error>

#include "platform/paths.h"

namespace zentab::platform {
namespace {

std::filesystem::path CurrentFolder() {
  std::error_code unknown;
  return std::filesystem::current_path(unknown);
}

std::string CurrentLocale() {
  const char* const name = std::setlocale(LC_ALL, nullptr);
  return name == nullptr ? std::string() : std::string(name);
}

}  // namespace

ProcessState::ProcessState()
    : folder_(CurrentFolder()), locale_(CurrentLocale()), restoreSystemState_(KeepSystemState()) {
  std::fegetenv(&arithmetic_);
}

ProcessState::~ProcessState() {
  // First of all: what traps is not to meet any of the rest.
  std::fesetenv(&arithmetic_);
  restoreSystemState_();
  // Other threads may just read it: it is touched only when it has to be.
  if (CurrentLocale() != locale_) std::setlocale(LC_ALL, locale_.c_str());
  // A folder that is gone cannot be gone back to; no file name depends on it.
  [[maybe_unused]] const std::error_code dropped = ChangeCurrentFolder(folder_);
}

}  // namespace zentab::platform

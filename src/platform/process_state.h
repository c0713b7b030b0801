#pragma once

#include <cfenv>
#include <filesystem>
#include <functional>
#include <string>

namespace zentab::platform {

/// Keeps what code that is not ours may change for the whole process or the calling thread, and
/// puts it back when this ends: the working folder, the floating-point environment (rounding,
/// exceptions that trap, flags), the locale of the C library, what signals do and which of them are
/// blocked. What the system does not tell or does not take back stays as it then is.
class ProcessState {
 public:
  ProcessState();
  ~ProcessState();
  ProcessState(const ProcessState&) = delete;
  ProcessState& operator=(const ProcessState&) = delete;

 private:
  std::filesystem::path folder_;
  std::fenv_t arithmetic_{};
  std::string locale_;
  std::function<void()> restoreSystemState_;
};

/// The part of it that each system has in its own way; what is returned puts it back.
[[nodiscard]] std::function<void()> KeepSystemState();

}  // namespace zentab::platform

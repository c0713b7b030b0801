#include "platform/process_state.h"

#include <float.h>
#include <signal.h>
#include <windows.h>

#include <utility>
#include <vector>

namespace zentab::platform {
namespace {

// Besides the environment of the C library, which not every library keeps whole.
constexpr unsigned kArithmetic = _MCW_EM | _MCW_RC | _MCW_DN;

}  // namespace

std::function<void()> KeepSystemState() {
  unsigned arithmetic = 0;
  _controlfp_s(&arithmetic, 0, 0);
  using Disposition = void(__cdecl*)(int);
  std::vector<std::pair<int, Disposition>> dispositions;
  for (const int number : {SIGABRT, SIGFPE, SIGILL, SIGINT, SIGSEGV, SIGTERM}) {
    // There is no asking without setting.
    const Disposition kept = ::signal(number, SIG_DFL);
    if (kept == SIG_ERR) continue;
    ::signal(number, kept);
    dispositions.emplace_back(number, kept);
  }
  const LPTOP_LEVEL_EXCEPTION_FILTER filter = SetUnhandledExceptionFilter(nullptr);
  SetUnhandledExceptionFilter(filter);
  return [arithmetic, dispositions = std::move(dispositions), filter] {
    // A flag that was raised before it traps would trap at the next operation.
    _clearfp();
    unsigned restored = 0;
    _controlfp_s(&restored, arithmetic, kArithmetic);
    for (const auto& [number, kept] : dispositions) ::signal(number, kept);
    SetUnhandledExceptionFilter(filter);
  };
}

}  // namespace zentab::platform

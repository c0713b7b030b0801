#include "platform/process_state.h"

#include <locale.h>
#include <signal.h>

#include <utility>
#include <vector>

namespace zentab::platform {

std::function<void()> KeepSystemState() {
  using Disposition = struct sigaction;
  std::vector<std::pair<int, Disposition>> dispositions;
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    Disposition kept{};
    // The C library keeps a few signals to itself.
    if (::sigaction(signal, nullptr, &kept) == 0) dispositions.emplace_back(signal, kept);
  }
  sigset_t blocked;
  ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
  const locale_t locale = ::uselocale(nullptr);
  return [dispositions = std::move(dispositions), blocked, locale] {
    ::uselocale(locale);
    for (const auto& [signal, kept] : dispositions) ::sigaction(signal, &kept, nullptr);
    // Last: one that was blocked meanwhile arrives now, and finds what it is for.
    ::pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
  };
}

}  // namespace zentab::platform

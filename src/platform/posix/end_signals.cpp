#include "platform/end_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>
#include <vector>

namespace zentab::platform {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// Written before a signal can arrive, read by the handler.
volatile sig_atomic_t writingEnd = -1;

extern "C" void NoteSignal(int) {
  const int error = errno;
  // A pipe that is full has been written to before, which is all that counts.
  [[maybe_unused]] const ssize_t dropped = ::write(writingEnd, "", 1);
  errno = error;
}

}  // namespace

struct EndSignals::Caught {
  std::array<int, 2> pipe = {-1, -1};
  std::vector<std::pair<int, struct sigaction>> former;
};

EndSignals::EndSignals() {
  std::array<int, 2> ends = {-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  caught_ = std::make_unique<Caught>();
  caught_->pipe = ends;
  writingEnd = ends[1];
  for (const int signal : kSignals) {
    struct sigaction former {};
    if (::sigaction(signal, nullptr, &former) != 0 || former.sa_handler == SIG_IGN) continue;
    struct sigaction noting {};
    noting.sa_handler = NoteSignal;
    noting.sa_flags = SA_RESTART;
    ::sigemptyset(&noting.sa_mask);
    if (::sigaction(signal, &noting, nullptr) == 0) caught_->former.emplace_back(signal, former);
  }
}

EndSignals::~EndSignals() {
  if (!caught_) return;
  for (const auto& [signal, former] : caught_->former) ::sigaction(signal, &former, nullptr);
  writingEnd = -1;
  for (const int end : caught_->pipe) ::close(end);
}

int EndSignals::Descriptor() const { return caught_ ? caught_->pipe[0] : -1; }

}  // namespace zentab::platform

#include "platform/console_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace zentab::platform {

std::vector<std::string> ProgramArguments(int count, char** values) {
  return {values + (count > 0 ? 1 : 0), values + count};
}

void UsePlainStreams() {
  // A file opened later must not take the place of a closed stream. What stands in for one fails
  // like it: standard input can only be written, the two others only be read.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) != -1) continue;
    // The lowest free number is given, which is this one.
    [[maybe_unused]] const int dropped =
        ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
  // A reader that goes away makes writing fail, so that temporary files are still removed.
  std::signal(SIGPIPE, SIG_IGN);
}

bool OutputIsTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

bool MessagesGoToTerminal() { return ::isatty(STDERR_FILENO) == 1; }

}  // namespace zentab::platform

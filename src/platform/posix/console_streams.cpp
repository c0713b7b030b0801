#include "platform/console_streams.h"

#include <unistd.h>

namespace zentab::platform {

std::vector<std::string> ProgramArguments(int count, char** values) {
  return {values + (count > 0 ? 1 : 0), values + count};
}

void UsePlainStreams() {}

bool OutputIsTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

}  // namespace zentab::platform

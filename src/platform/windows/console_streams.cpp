#include "platform/console_streams.h"

#include <windows.h>

// Behind the header that it needs.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>

#include "platform/windows/wide_text.h"

namespace zentab::platform {

std::vector<std::string> ProgramArguments(int, char**) {
  // The narrow ones have lost what the code page does not hold.
  int count = 0;
  LPWSTR* const values = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int at = 1; values != nullptr && at < count; ++at) arguments.push_back(ToUtf8(values[at]));
  LocalFree(values);
  return arguments;
}

void UsePlainStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

bool OutputIsTerminal() { return _isatty(_fileno(stdout)) != 0; }

bool MessagesGoToTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace zentab::platform

#pragma once

#include <string>
#include <vector>

namespace zentab::platform {

/// The program's arguments, without its own name, as UTF-8.
[[nodiscard]] std::vector<std::string> ProgramArguments(int count, char** values);

/// Lets standard input and output pass on every byte as it is, and makes reading or writing one
/// that is closed an error and nothing worse.
void UsePlainStreams();

/// Whether standard output is a terminal.
[[nodiscard]] bool OutputIsTerminal();
/// Whether standard error is one.
[[nodiscard]] bool MessagesGoToTerminal();

}  // namespace zentab::platform

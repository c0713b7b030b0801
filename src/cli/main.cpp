#include <iostream>

#include "cli/command.h"
#include "platform/console_streams.h"
#include "platform/file_size_limit.h"

namespace zentab::cli {
namespace {

Exit Run(const std::vector<std::string>& arguments) {
  CLI::App program(
      "Relay curve tables without a window.\nExit codes: 0 done, 1 the operation "
      "failed or found nothing, 2 wrong usage.",
      "zentab-cli");
  program.set_version_flag("--version", "zentab-cli " ZENTAB_VERSION);
  program.require_subcommand(0, 1);
  program.failure_message([](const CLI::App* failed, const CLI::Error& error) {
    std::string usage = failed->get_name();
    for (const CLI::App* const command : failed->get_subcommands()) {
      usage += ' ' + command->get_name();
    }
    return "zentab-cli: " + std::string(error.what()) + "\nRun " + usage +
           " --help for its usage.\n";
  });
  Commands commands{program, {}};
  AddTableCommands(commands);
  AddTextCommands(commands);
  AddTimeTestCommands(commands);
  AddGraphCommands(commands);
  AddCleanCommand(commands);
  AddEvalCommand(commands);
  AddCheckCommand(commands);
  try {
    // The parser takes its arguments from the back.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? Exit::Done : Exit::WrongUsage;
  }
  Console console;
  if (!commands.chosen) return console.Misused("a command is needed; --help lists them");
  const Exit exit = commands.chosen(console);
  if (console.Finish()) return exit;
  if (console.HasLostReader()) return Exit::Failed;
  return console.Fail("standard output cannot be written");
}

}  // namespace
}  // namespace zentab::cli

int main(int count, char** values) {
  zentab::platform::ReportFileSizeLimit();
  std::ios::sync_with_stdio(false);
  zentab::platform::UsePlainStreams();
  return static_cast<int>(zentab::cli::Run(zentab::platform::ProgramArguments(count, values)));
}

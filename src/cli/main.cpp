#include <iostream>
#include <sstream>

#include "cli/command.h"
#include "platform/console_streams.h"
#include "platform/file_size_limit.h"

namespace zentab::cli {
namespace {

// Help or what is wrong with the arguments, some of which may come from a file.
Exit Explain(const CLI::App& program, const CLI::ParseError& error, Console& console) {
  std::ostringstream help;
  std::ostringstream failure;
  const bool isHelp = program.exit(error, help, failure) == 0;
  console.Write(help.str());
  console.Tell(failure.str());
  if (!console.Finish()) return Exit::Failed;
  return isHelp ? Exit::Done : Exit::WrongUsage;
}

// The parser would take the next argument for the value that is missing in "--option=".
std::vector<std::string> WithEmptyValues(const std::vector<std::string>& arguments,
                                         CLI::App& program) {
  std::vector<std::string> result;
  const CLI::App* command = &program;
  bool optionsMayFollow = true;
  for (const std::string& argument : arguments) {
    optionsMayFollow = optionsMayFollow && argument != "--";
    const std::string name = argument.substr(0, argument.find('='));
    if (command == &program && !argument.starts_with('-')) {
      const auto commands = program.get_subcommands(
          [&argument](const CLI::App* known) { return known->check_name(argument); });
      if (!commands.empty()) command = commands.front();
    }
    const CLI::Option* const option =
        optionsMayFollow && name.starts_with("--") ? command->get_option_no_throw(name) : nullptr;
    const bool lacksValue = option != nullptr && name.size() + 1 == argument.size() &&
                            option->get_items_expected_max() > 0;
    result.push_back(lacksValue ? name : argument);
    if (lacksValue) result.emplace_back();
  }
  return result;
}

Exit Run(const std::vector<std::string>& given) {
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
  AddRenameCommands(commands);
  AddReadCommand(commands);
  AddExportCommands(commands);
  AddLibraryCommands(commands);
  AddTextCommands(commands);
  AddTimeTestCommands(commands);
  AddGraphCommands(commands);
  AddCurveCommands(commands);
  AddFitCommand(commands);
  AddAssessCommand(commands);
  AddCleanCommand(commands);
  AddEvalCommand(commands);
  AddFunctionsCommand(commands);
  AddCheckCommand(commands);
  AddCompletionCommand(commands);
  Console console;
  const std::vector<std::string> arguments = WithEmptyValues(given, program);
  try {
    // The parser takes its arguments from the back.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    return Explain(program, error, console);
  }
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

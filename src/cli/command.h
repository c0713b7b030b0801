#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>

#include "cli/console.h"

namespace zentab::cli {

/// The program's commands and the one that its arguments chose.
struct Commands {
  CLI::App& program;
  std::function<Exit(Console&)> chosen;
};

/// Adds a command: `declare` names its arguments, which are kept in an Options, and `run` carries
/// it out once they are read.
template <class Options>
void AddCommand(Commands& commands, const char* name, const char* description,
                void (*declare)(CLI::App&, Options&), Exit (*run)(const Options&, Console&)) {
  CLI::App* const command = commands.program.add_subcommand(name, description);
  const auto options = std::make_shared<Options>();
  declare(*command, *options);
  command->callback([&commands, options, run] {
    commands.chosen = [options, run](Console& console) { return run(*options, console); };
  });
}

void AddTableCommands(Commands& commands);      // list, show, add, update, remove, copy
void AddRenameCommands(Commands& commands);     // rename, move
void AddLibraryCommands(Commands& commands);    // diff, merge
void AddFunctionsCommand(Commands& commands);   // functions
void AddExportCommands(Commands& commands);     // export, add-all
void AddReadCommand(Commands& commands);        // read
void AddCheckCommand(Commands& commands);       // check
void AddTextCommands(Commands& commands);       // text, expand
void AddTimeTestCommands(Commands& commands);   // entry, import
void AddGraphCommands(Commands& commands);      // grh, grh-read
void AddCurveCommands(Commands& commands);      // curve, thin, resample, margin
void AddFitCommand(Commands& commands);         // fit
void AddAssessCommand(Commands& commands);      // assess
void AddCleanCommand(Commands& commands);       // clean
void AddCompletionCommand(Commands& commands);  // completion
void AddEvalCommand(Commands& commands);        // eval

}  // namespace zentab::cli

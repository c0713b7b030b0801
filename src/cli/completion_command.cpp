#include "cli/command.h"

namespace zentab::cli {
namespace {

struct CompletionOptions {
  std::string shell;
};

// The texts that an option takes, as IsMember names them: "TEXT:{a,b}"; none where it takes any.
std::vector<std::string> AllowedOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t begin = type.find('{');
  const std::size_t end = type.rfind('}');
  if (begin == std::string::npos || end == std::string::npos) return {};
  return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

std::vector<std::string> NamesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
  return CLI::detail::join(words, between);
}

std::string AllNamesOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : OptionsOf(command)) {
    for (std::string& name : NamesOf(*option)) names.push_back(std::move(name));
  }
  return Joined(names, " ");
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& program) {
  return program.get_subcommands([](const CLI::App*) { return true; });
}

std::string NamesOfCommands(const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::App* const command : CommandsOf(program)) names.push_back(command->get_name());
  return Joined(names, " ");
}

std::string BashScript(const CLI::App& program) {
  std::string words =
      "    '') words='" + NamesOfCommands(program) + ' ' + AllNamesOf(program) + "' ;;\n";
  std::string choices;
  for (const CLI::App* const command : CommandsOf(program)) {
    words += "    " + command->get_name() + ") words='" + AllNamesOf(*command) + "' ;;\n";
    for (const CLI::Option* const option : OptionsOf(*command)) {
      const std::vector<std::string> taken = AllowedOf(*option);
      if (taken.empty()) continue;
      for (const std::string& name : NamesOf(*option)) {
        choices += "    '" + command->get_name() + ' ' + name + "') words='" + Joined(taken, " ") +
                   "' chosen=1 ;;\n";
      }
    }
  }
  return R"(# Completion of zentab-cli for bash; made by: zentab-cli completion bash
_zentab_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' words='' chosen='' at
  for ((at = 1; at < COMP_CWORD; ++at)); do
    [[ ${COMP_WORDS[at]} == -* ]] || { command=${COMP_WORDS[at]} && break; }
  done
  case $command in
)" + words +
         R"(  esac
  case "$command $previous" in
)" + choices +
         R"(  esac
  if [[ -z $command || -n $chosen || $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}
complete -o filenames -F _zentab_cli zentab-cli
)";
}

// What a description may hold between "[" and "]", in single quotes.
std::string ZshText(const std::string& text) {
  std::string escaped;
  for (const char c : text.substr(0, text.find('\n'))) {
    if (c == '[' || c == ']' || c == ':' || c == '\\') escaped += '\\';
    escaped += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return escaped;
}

std::string ZshArgument(const CLI::Option& option) {
  std::string action;
  if (option.get_items_expected_max() > 0) {
    const std::vector<std::string> taken = AllowedOf(option);
    action = ":value:" + (taken.empty() ? "_files" : '(' + Joined(taken, " ") + ')');
  }
  std::string arguments;
  for (const std::string& name : NamesOf(option)) {
    arguments += " \\\n        '" + name + '[';
    arguments += ZshText(option.get_description()) + ']';
    arguments += action + '\'';
  }
  return arguments;
}

std::string ZshScript(const CLI::App& program) {
  std::string commands;
  std::string cases;
  for (const CLI::App* const command : CommandsOf(program)) {
    commands += "    '" + command->get_name() + ':' + ZshText(command->get_description()) + "'\n";
    cases += "    " + command->get_name() + ")\n      _arguments";
    for (const CLI::Option* const option : OptionsOf(*command)) cases += ZshArgument(*option);
    cases += " \\\n        '*:file:_files'\n      ;;\n";
  }
  return "#compdef zentab-cli\n# Completion of zentab-cli for zsh; made by: zentab-cli completion "
         "zsh\n"
         "local -a commands=(\n" +
         commands + R"()
if (( CURRENT == 2 )); then
  _describe command commands
else
  shift words
  (( CURRENT-- ))
  case $words[1] in
)" + cases +
         R"(  esac
fi
)";
}

}  // namespace

void AddCompletionCommand(Commands& commands) {
  CLI::App& program = commands.program;
  CLI::App* const command = program.add_subcommand(
      "completion", "A script with which a shell completes the program's commands and options");
  const auto options = std::make_shared<CompletionOptions>();
  command->add_option("SHELL", options->shell, "bash or zsh")
      ->check(CLI::IsMember({"bash", "zsh"}))
      ->required();
  command->callback([&commands, &program, options] {
    commands.chosen = [&program, options](Console& console) {
      console.Write(options->shell == "bash" ? BashScript(program) : ZshScript(program));
      return Exit::Done;
    };
  });
}

}  // namespace zentab::cli

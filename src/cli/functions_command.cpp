#include <nlohmann/json.hpp>

#include "cli/command.h"
#include "mathparser/function_documentation.h"

namespace zentab::cli {
namespace {

struct FunctionsOptions {
  std::string format = "text";
};

void DeclareFunctions(CLI::App& command, FunctionsOptions& options) {
  command
      .add_option("--format", options.format,
                  "text: keyword, arguments, meaning, domain and example a line, between tabs; "
                  "json: one array of objects with these")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
}

Exit Functions(const FunctionsOptions& options, Console& console) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const mathparser::FunctionDocumentation& row : mathparser::DocumentedFunctions()) {
    if (options.format == "json") {
      all.push_back({{"keyword", row.keyword},
                     {"arguments", row.arguments},
                     {"meaning", row.meaning},
                     {"domain", row.domain},
                     {"example", row.example}});
      continue;
    }
    std::string line;
    for (const std::string_view cell :
         {row.keyword, row.arguments, row.meaning, row.domain, row.example}) {
      if (!line.empty()) line += '\t';
      line += cell;
    }
    console.WriteLine(line);
  }
  if (options.format == "json") console.WriteLine(all.dump());
  return Exit::Done;
}

}  // namespace

void AddFunctionsCommand(Commands& commands) {
  AddCommand(commands, "functions", "The functions that an expression may call", DeclareFunctions,
             Functions);
}

}  // namespace zentab::cli

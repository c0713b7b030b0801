#include "app/session_texts.h"
#include "cli/command.h"
#include "cli/input_file.h"
#include "texts/template_text.h"
#include "texts/text_catalogue.h"

namespace zentab::cli {
namespace {

struct TextOptions {
  std::string catalogue;
  std::string key;
};

void DeclareText(CLI::App& command, TextOptions& options) {
  command.add_option("CATALOGUE", options.catalogue, "Text catalogue, - for standard input")
      ->required();
  command.add_option("KEY", options.key, "Key; the first line that holds it counts")->required();
}

Exit Text(const TextOptions& options, Console& console) {
  const InputFile catalogue(options.catalogue);
  if (catalogue.Error()) {
    return console.Fail(catalogue.Name() + ": " + catalogue.Error().message());
  }
  std::string text;
  const auto error =
      texts::LookupText(platform::SystemFiles(), options.key, catalogue.Path(), text);
  if (error) return console.Fail(catalogue.Name() + ": " + error.message());
  if (text.empty()) return console.Fail(catalogue.Name() + ": no text for '" + options.key + "'");
  console.WriteLine(text);
  return Exit::Done;
}

struct ExpandOptions {
  std::string text;
  std::vector<std::string> arguments;
  std::string table;
};

void DeclareExpand(CLI::App& command, ExpandOptions& options) {
  command
      .add_option("TEMPLATE", options.text,
                  "Text with fields: %1 %2 %3 arguments, %D date, %E time, %S time with seconds, "
                  "%F table file, %N line feed, %X time unit, %% percent sign; %G %T %U %V are "
                  "empty; put -- before one that begins with a minus")
      ->required();
  command.add_option("ARG", options.arguments, "What %1, %2 and %3 stand for");
  command.add_option("--table", options.table, "The active table file's name, for %F");
}

Exit Expand(const ExpandOptions& options, Console& console) {
  texts::TemplateFields fields;
  fields.now = app::LocalTime();
  fields.tablePath = options.table;
  fields.timeUnit = editor::ValueModes().TimeUnitText();
  texts::TemplateArguments arguments;
  if (options.arguments.size() > arguments.size()) {
    return console.Misused("expand: at most " + std::to_string(arguments.size()) + " ARGs");
  }
  std::copy(options.arguments.begin(), options.arguments.end(), arguments.begin());
  console.WriteLine(texts::ExpandTemplate(options.text, fields, arguments));
  return Exit::Done;
}

}  // namespace

void AddTextCommands(Commands& commands) {
  AddCommand(commands, "text", "A catalogue's text for a key; exit code 1 when it has none",
             DeclareText, Text);
  AddCommand(commands, "expand", "Fills in the fields of a template", DeclareExpand, Expand);
}

}  // namespace zentab::cli

#include <iostream>

#include "cli/command.h"
#include "cli/numbers.h"
#include "mathparser/math_parser.h"
#include "platform/character_case.h"
#include "platform/console_streams.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

using mathparser::MathParser;

struct EvalOptions {
  const CLI::Option* given = nullptr;  // whether there is an expression: it may be empty
  std::string expression;
  std::vector<std::string> values;
  std::string angle = "RAD";
  bool table = false;
  bool batch = false;
  bool lineBuffered = false;
};

struct Setting {
  std::string_view name;
  std::string_view value;
};

std::optional<Setting> SettingOf(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0) return std::nullopt;
  return Setting{text.substr(0, equals), text.substr(equals + 1)};
}

const CLI::Validator kSetting(
    [](const std::string& text) {
      const std::optional<Setting> setting = SettingOf(text);
      return setting && texts::WholeNumber(setting->value) ? std::string()
                                                           : "'" + text + "' is not NAME=VALUE";
    },
    "NAME=VALUE");

void DeclareEval(CLI::App& command, EvalOptions& options) {
  CLI::Option* const expression =
      command.add_option("EXPRESSION", options.expression, "The expression");
  options.given = expression;
  command
      .add_option("VARIABLE", options.values,
                  "NAME=VALUE; variables are 0 unless given, names that the expression "
                  "does not hold are passed over")
      ->check(kSetting);
  CLI::Option* const angle =
      command.add_option("--angle", options.angle, "Unit of angles: RAD, DEG or GRAD")
          ->check(CLI::IsMember({"RAD", "DEG", "GRAD"}, CLI::ignore_case))
          ->capture_default_str();
  CLI::Option* const table = command.add_flag(
      "--table", options.table,
      "The expression table with its title row in place of the value; when the evaluation fails, "
      "with the values up to the row that did");
  CLI::Option* const batch = command.add_flag(
      "--batch", options.batch,
      "One expression a line from standard input, behind it NAME=VALUE and angle=UNIT between "
      "tabs; answers each line by ok, tab, VALUE or error, tab, NUMBER, tab, TEXT, where 0 is an "
      "expression that is none");
  command.add_flag("--line-buffered", options.lineBuffered, "Answers at once, line by line")
      ->needs(batch);
  batch->excludes(expression)->excludes(angle)->excludes(table);
}

void WriteTable(MathParser& parser, Console& console) {
  for (const std::vector<std::string>& row : parser.ET_Dump()) {
    std::string line;
    for (const std::string& cell : row) line += (&cell == row.data() ? "" : "\t") + cell;
    console.WriteLine(line);
  }
}

Exit EvalOne(const EvalOptions& options, Console& console) {
  MathParser parser;
  if (!parser.StoreExpression(options.expression)) return console.Fail(parser.ErrorDescription());
  parser.AngleUnit(options.angle);
  for (const std::string& text : options.values) {
    const std::optional<Setting> setting = SettingOf(text);
    parser.VarSymb(setting->name, *texts::WholeNumber(setting->value));
  }
  std::string failure;
  try {
    const double value = parser.Eval();
    if (!options.table) console.WriteLine(ShortestText(value));
  } catch (const mathparser::EvaluationError& error) {
    failure = error.Description();
  }
  if (options.table) WriteTable(parser, console);
  return failure.empty() ? Exit::Done : console.Fail(failure);
}

// Evaluates line after line with one parser.
class Batch {
 public:
  // The answer to a line, valid until the next.
  const std::string& Answer(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::size_t tab = std::min(line.find('\t'), line.size());
    if (!parser_.StoreExpression(line.substr(0, tab))) return Error(0, parser_.ErrorDescription());
    parser_.AngleUnit("RAD");
    for (std::string_view rest = line.substr(tab); !rest.empty();) {
      rest.remove_prefix(1);
      const std::string_view field = rest.substr(0, rest.find('\t'));
      rest.remove_prefix(field.size());
      if (!Set(field)) {
        return Error(0, "'" + std::string(field) + "' is not NAME=VALUE or angle=UNIT");
      }
    }
    try {
      answer_ = "ok\t";
      answer_ += ShortestText(parser_.Eval());
    } catch (const mathparser::EvaluationError& error) {
      return Error(error.Number(), error.Description());
    }
    return answer_;
  }

 private:
  bool Set(std::string_view field) {
    const std::optional<Setting> setting = SettingOf(field);
    if (!setting) return false;
    if (setting->name == "angle") {
      parser_.AngleUnit(setting->value);  // stays as it is with a unit that is none
      return platform::LowerCase(setting->value) == platform::LowerCase(parser_.AngleUnit());
    }
    const std::optional<double> value = texts::WholeNumber(setting->value);
    if (value) parser_.VarSymb(setting->name, *value);
    return value.has_value();
  }

  const std::string& Error(int number, std::string_view text) {
    answer_ = "error\t" + std::to_string(number) + '\t';
    answer_ += text;
    return answer_;
  }

  MathParser parser_;
  std::string answer_;
};

Exit EvalBatch(const EvalOptions& options, Console& console) {
  const bool isAtOnce = options.lineBuffered || platform::OutputIsTerminal();
  Batch batch;
  // Without anyone to answer the input may go on for ever.
  for (std::string line; !console.IsBroken() && std::getline(std::cin, line);) {
    console.WriteLine(batch.Answer(line));
    if (isAtOnce) console.Flush();
  }
  if (std::cin.bad()) return console.Fail("standard input cannot be read");
  return Exit::Done;
}

Exit Eval(const EvalOptions& options, Console& console) {
  if (options.batch) return EvalBatch(options, console);
  if (options.given->count() == 0) return console.Misused("eval: an EXPRESSION, or --batch");
  return EvalOne(options, console);
}

}  // namespace

void AddEvalCommand(Commands& commands) {
  AddCommand(commands, "eval",
             "The value of an expression; put -- before one that begins with a minus", DeclareEval,
             Eval);
}

}  // namespace zentab::cli

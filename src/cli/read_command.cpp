#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/curve_arguments.h"
#include "cli/input_file.h"
#include "interchange/cell_table.h"
#include "interchange/curve_file.h"
#include "platform/file_text.h"

namespace zentab::cli {
namespace {

using interchange::Encoding;
using interchange::ImportedCurve;
using interchange::LoadUnit;
using interchange::TimeUnit;

const std::map<std::string, LoadUnit> kLoadUnits = {{"multiple", LoadUnit::Multiple},
                                                    {"a", LoadUnit::Ampere},
                                                    {"v", LoadUnit::Volt},
                                                    {"ka", LoadUnit::Kiloampere}};
const std::map<std::string, TimeUnit> kTimeUnits = {
    {"s", TimeUnit::Second},         {"ms", TimeUnit::Millisecond},   {"cycles", TimeUnit::Cycle50},
    {"cycles50", TimeUnit::Cycle50}, {"cycles60", TimeUnit::Cycle60},
};
const std::map<std::string, Encoding> kEncodings = {
    {"utf-8", Encoding::Utf8}, {"utf-16", Encoding::Utf16}, {"windows-1252", Encoding::SingleByte}};

struct ReadOptions {
  std::string file;
  std::string load;
  std::string time;
  std::string decimal;
  std::string separator;
  std::string units;
  std::string header;
  std::optional<Encoding> encoding;
  std::size_t curve = 1;
  bool cut = false;
};

struct Units {
  LoadUnit load;
  TimeUnit time;
};

std::optional<Units> UnitsOf(const std::string& text) {
  const std::string folded = CLI::detail::to_lower(text);
  const std::size_t comma = std::min(folded.find(','), folded.size());
  const auto load = kLoadUnits.find(folded.substr(0, comma));
  const auto time = kTimeUnits.find(folded.substr(std::min(comma + 1, folded.size())));
  if (load == kLoadUnits.end() || time == kTimeUnits.end()) return std::nullopt;
  return Units{load->second, time->second};
}

const CLI::Validator kUnits(
    [](const std::string& text) {
      return UnitsOf(text) ? std::string()
                           : "'" + text +
                                 "' is not multiple, A, V or kA, a comma, and s, ms, cycles50 or "
                                 "cycles60";
    },
    "LOAD,TIME");

void DeclareRead(CLI::App& command, ReadOptions& options) {
  command
      .add_option("FILE", options.file,
                  "Rows of a spreadsheet (csv, tsv), or a library in json; - for standard input")
      ->required();
  command.add_option("--load", options.load, "Column of the loads: its number from 1, or heading");
  command.add_option("--time", options.time, "Column of the times");
  command.add_option("--decimal", options.decimal, "Decimal sign")
      ->check(CLI::IsMember({".", ","}));
  command
      .add_option("--separator", options.separator,
                  "Separator of the cells: one character, \"tab\", or a blank for any number of "
                  "blanks")
      ->check(kSeparator);
  command
      .add_option("--units", options.units,
                  "What loads and times count in: multiple, A, V or kA, a comma, and s, ms, "
                  "cycles50 or cycles60")
      ->check(kUnits);
  command.add_option("--header", options.header, "Whether the first row is a heading: yes or no")
      ->check(CLI::IsMember({"yes", "no"}));
  command.add_option("--encoding", options.encoding, "utf-8, utf-16 or windows-1252")
      ->transform(CLI::CheckedTransformer(kEncodings, CLI::ignore_case).description(""));
  command
      .add_option("--curve", options.curve,
                  "Which curve of several, from 1; all else is guessed unless given")
      ->check(kCount)
      ->capture_default_str();
  command.add_flag("--cut", options.cut,
                   "Of more than 26 points the first stay; unless given, those that straight lines "
                   "tell most by, and a line # deviation=P");
}

interchange::ImportChoices ChoicesOf(const ReadOptions& options) {
  interchange::ImportChoices choices;
  choices.encoding = options.encoding;
  if (!options.separator.empty()) choices.separator = SeparatorOf(options.separator);
  if (!options.decimal.empty()) choices.decimalSign = options.decimal.front();
  if (!options.header.empty()) choices.hasHeader = options.header == "yes";
  choices.load = options.load;
  choices.time = options.time;
  if (const auto units = UnitsOf(options.units)) {
    choices.loadUnit = units->load;
    choices.timeUnit = units->time;
  }
  return choices;
}

Exit Read(const ReadOptions& options, Console& console) {
  const InputFile file(options.file);
  std::string text;
  std::error_code error = file.Error();
  if (!error) {
    error = platform::ReadWholeFile(platform::SystemFiles(), file.Path(), interchange::kLargestText,
                                    text);
  }
  if (error) return console.Fail(file.Name() + ": " + error.message());
  const auto read = interchange::ReadCurves(options.file, std::move(text), ChoicesOf(options));
  if (const auto* const fault = interchange::FaultOf(read)) {
    return console.Fail(file.Name() + ": " + interchange::FaultText(*fault, {}));
  }
  const auto& curves = std::get<interchange::ImportedText>(read).curves;
  if (options.curve < 1 || options.curve > curves.size()) {
    const interchange::Fault fault = {interchange::FaultKind::NoCurve,
                                      std::to_string(options.curve)};
    return console.Fail(file.Name() + ": " + interchange::FaultText(fault, {}));
  }
  const ImportedCurve& curve = curves[options.curve - 1];
  const auto points = interchange::PointsForTable(
      curve, options.cut ? interchange::Surplus::Cut : interchange::Surplus::Thin);
  if (const curves::Fault* const fault = curves::FaultOf(points)) {
    return console.Fail(file.Name() + ": " + Sentence(*fault));
  }
  const auto& chosen = std::get<curves::ChosenPoints>(points);
  WritePoints(chosen.points, 1.0, console);
  const bool isThinned = !options.cut && curve.points.size() > chosen.points.size();
  if (isThinned) WriteDeviation(chosen.deviation, console);
  return Exit::Done;
}

}  // namespace

void AddReadCommand(Commands& commands) {
  AddCommand(commands, "read",
             "The points of a curve that another program wrote: LOAD, tab, TIME a line, loads in "
             "multiples, A or V, times in ms where the file has them, else in s",
             DeclareRead, Read);
}

}  // namespace zentab::cli

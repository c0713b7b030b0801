#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/curve_arguments.h"
#include "curves/sampling.h"
#include "curves/thinning.h"

namespace zentab::cli {
namespace {

using curves::kMillisecondsPerSecond;

curves::Axes AxesOf(const std::string& name) {
  if (name.empty()) return curves::Axes::Chart;
  return name == "log" ? curves::Axes::Logarithmic : curves::Axes::Linear;
}

curves::Spacing SpacingOf(const std::string& name) {
  if (name == "best") return curves::Spacing::Best;
  return name == "linear" ? curves::Spacing::Linear : curves::Spacing::Logarithmic;
}

// Where the loads of a table come from.
struct LoadOptions {
  std::string from;
  std::string to;
  std::string points;
  std::string loads;
  std::string spacing;
};

void DeclareRange(CLI::App& command, LoadOptions& options, CLI::Option* points) {
  CLI::Option* const loads =
      command
          .add_option("--loads", options.loads,
                      "The loads themselves, in their order, with , between them")
          ->check(kNumberList)
          ->excludes(points);
  command.add_option("--from", options.from, "First load")->check(kNumber)->excludes(loads);
  command.add_option("--to", options.to, "Last load")->check(kNumber)->excludes(loads);
}

void TakeRange(const LoadOptions& options, curves::Sampling& sampling) {
  if (!options.from.empty()) sampling.from = NumberOf(options.from);
  if (!options.to.empty()) sampling.to = NumberOf(options.to);
  if (!options.points.empty()) sampling.points = static_cast<std::size_t>(NumberOf(options.points));
  sampling.spacing = SpacingOf(options.spacing);
}

// curve

struct CurveOptions {
  CharacteristicOptions characteristic;
  LoadOptions loads;
  bool absolute = false;
  bool milliseconds = false;
};

void DeclareCurve(CLI::App& command, CurveOptions& options) {
  command.add_option("FAMILY", options.characteristic.family, "The characteristic")
      ->required()
      ->check(CLI::IsMember(FamilyIds(false), CLI::ignore_case));
  DeclareCharacteristic(command, options.characteristic);
  command
      .add_option("--pickup", options.characteristic.pickup,
                  "Pickup value, amperes or volts; needed with --absolute")
      ->check(kNumber);
  CLI::Option* const points =
      command
          .add_option("--points", options.loads.points,
                      "How many points, 2 to 26; 26 unless given, from 1.05 to 20 times the pickup "
                      "value, of undervoltage from 0.05 to 0.95")
          ->check(kPointCount);
  DeclareRange(command, options.loads, points);
  command
      .add_option("--spacing", options.loads.spacing,
                  "log (unless given), linear, or best: the loads at which the chart's straight "
                  "lines deviate least, with a line # deviation=P, the largest deviation in per "
                  "cent of the time")
      ->check(CLI::IsMember({"log", "linear", "best"}))
      ->excludes("--loads");
  command.add_flag("--ms", options.milliseconds, "Times become milliseconds, else seconds");
  command.add_flag("--absolute", options.absolute,
                   "Loads are amperes or volts, not multiples of the pickup value; so are --from, "
                   "--to, --loads and --previous");
}

Exit Curve(const CurveOptions& options, Console& console) {
  curves::Characteristic characteristic;
  if (!TakeCharacteristic(options.characteristic, options.absolute, "curve", console,
                          characteristic)) {
    return Exit::WrongUsage;
  }
  const auto curve = curves::CharacteristicCurve::Of(characteristic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) {
    return console.Fail("curve: " + Sentence(*fault));
  }
  const auto& prepared = std::get<curves::CharacteristicCurve>(curve);
  curves::Sampling sampling = curves::UsualSampling(characteristic);
  TakeRange(options.loads, sampling);
  const auto sampled = options.loads.loads.empty()
                           ? curves::Sample(prepared, sampling)
                           : curves::SampleAt(prepared, *NumberList(options.loads.loads));
  if (const curves::Fault* const fault = curves::FaultOf(sampled)) {
    return console.Fail("curve: " + Sentence(*fault));
  }
  const auto& chosen = std::get<curves::ChosenPoints>(sampled);
  WritePoints(chosen.points, options.milliseconds ? kMillisecondsPerSecond : 1.0, console);
  if (sampling.spacing == curves::Spacing::Best) WriteDeviation(chosen.deviation, console);
  return Exit::Done;
}

// thin, resample

struct TableOptions {
  std::string file;
  std::string entry;
  LoadOptions loads;
  std::string axes;
};

void DeclareTable(CLI::App& command, TableOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  command
      .add_option("--axes", options.axes,
                  "The axes on which lines are straight: log or linear; unless given those of the "
                  "chart, log when all loads are above 0")
      ->check(CLI::IsMember({"log", "linear"}));
}

void DeclareThin(CLI::App& command, TableOptions& options) {
  DeclareTable(command, options);
  command.add_option("--points", options.loads.points, "How many points are to stay, 2 to 26")
      ->required()
      ->check(kPointCount);
}

void DeclareResample(CLI::App& command, TableOptions& options) {
  DeclareTable(command, options);
  CLI::Option* const points =
      command
          .add_option("--points", options.loads.points,
                      "How many points, 2 to 26, from the first to the last load of the entry "
                      "unless --from or --to say otherwise")
          ->check(kPointCount);
  DeclareRange(command, options.loads, points);
  command.add_option("--spacing", options.loads.spacing, "log (unless given) or linear")
      ->check(CLI::IsMember({"log", "linear"}))
      ->excludes("--loads");
}

// The entry as a curve; nothing when there is none, which was said.
std::optional<curves::TableCurve> TakeTable(const TableOptions& options, std::string& name,
                                            const Console& console) {
  const auto entry = TakeEntry(InputFile(options.file), options.entry, console);
  if (!entry) return std::nullopt;
  name = entry->name;
  auto curve = curves::TableCurve::Of(entry->points, AxesOf(options.axes));
  if (const curves::Fault* const fault = curves::FaultOf(curve)) {
    console.Warn(entry->name + ": " + Sentence(*fault));
    return std::nullopt;
  }
  return std::get<curves::TableCurve>(std::move(curve));
}

Exit Thin(const TableOptions& options, Console& console) {
  std::string name;
  const auto curve = TakeTable(options, name, console);
  if (!curve) return Exit::Failed;
  const curves::ChosenPoints thinned =
      curves::Thin(*curve, static_cast<std::size_t>(NumberOf(options.loads.points)));
  WritePoints(thinned.points, 1.0, console);
  WriteDeviation(thinned.deviation, console);
  return Exit::Done;
}

Exit Resample(const TableOptions& options, Console& console) {
  if (options.loads.loads.empty() && options.loads.points.empty()) {
    return console.Misused("resample: --points or --loads");
  }
  std::string name;
  const auto curve = TakeTable(options, name, console);
  if (!curve) return Exit::Failed;
  curves::Outcome<std::vector<double>> loads;
  if (options.loads.loads.empty()) {
    curves::Sampling sampling = {curve->From(), curve->To()};
    TakeRange(options.loads, sampling);
    loads = curves::SpacedLoads(sampling);
  } else {
    loads = *NumberList(options.loads.loads);
  }
  if (const curves::Fault* const fault = curves::FaultOf(loads)) {
    return console.Fail(name + ": " + Sentence(*fault));
  }
  const auto points = curves::Resample(*curve, std::get<std::vector<double>>(loads));
  if (const curves::Fault* const fault = curves::FaultOf(points)) {
    return console.Fail(name + ": " + Sentence(*fault));
  }
  WritePoints(std::get<std::vector<curves::Point>>(points), 1.0, console);
  return Exit::Done;
}

// margin

struct MarginOptions {
  std::string file;
  std::string first;
  std::string second;
};

void DeclareMargin(CLI::App& command, MarginOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY1", options.first, "Name, or #N for line number N from 0")->required();
  command.add_option("ENTRY2", options.second, "The other one")->required();
}

Exit Margin(const MarginOptions& options, Console& console) {
  const InputFile file(options.file);
  std::vector<curves::TableCurve> both;
  bool areAbsolute[2] = {};
  for (const std::string* const wanted : {&options.first, &options.second}) {
    const auto entry = TakeEntry(file, *wanted, console);
    if (!entry) return Exit::Failed;
    areAbsolute[both.size()] = entry->absolute;
    auto curve = curves::TableCurve::Of(entry->InSeconds(), curves::Axes::Chart);
    if (const curves::Fault* const fault = curves::FaultOf(curve)) {
      return console.Fail(entry->name + ": " + Sentence(*fault));
    }
    both.push_back(std::get<curves::TableCurve>(std::move(curve)));
  }
  if (areAbsolute[0] != areAbsolute[1]) {
    return console.Fail("margin: " + Sentence({curves::FaultKind::DifferentLoads}));
  }
  const auto margin = curves::SmallestMargin(both[0], both[1]);
  if (const curves::Fault* const fault = curves::FaultOf(margin)) {
    return console.Fail("margin: " + Sentence(*fault));
  }
  WritePoints({std::get<curves::Point>(margin)}, 1.0, console);
  return Exit::Done;
}

}  // namespace

void AddCurveCommands(Commands& commands) {
  AddCommand(commands, "curve", "A characteristic as a table: LOAD, tab, TIME a line", DeclareCurve,
             Curve);
  AddCommand(commands, "thin",
             "The points of an entry that straight lines between them tell most by, and a line "
             "# deviation=P, the largest deviation in per cent of the time",
             DeclareThin, Thin);
  AddCommand(commands, "resample", "The times of an entry at other loads: LOAD, tab, TIME a line",
             DeclareResample, Resample);
  AddCommand(commands, "margin",
             "Where two entries come closest over their common loads: LOAD, tab, SECONDS",
             DeclareMargin, Margin);
}

}  // namespace zentab::cli

#include "app/reference_graph_commands.h"
#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "cli/reason.h"
#include "editor/grid_points.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"
#include "tables/entry_line.h"
#include "testset/imported_graph.h"
#include "testset/reference_graph_writer.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPickupNeeded = "loads relative to the pickup value need --pickup";

// grh

struct GraphOptions {
  std::string file;
  std::string entry;
  std::string pickup;
  std::string multiplier;
  std::string first;
  std::string last;
  std::string output;
  bool absolute = false;
  bool relative = false;
  bool milliseconds = false;
  bool seconds = false;
};

struct Pair {
  std::string x;
  std::string y;
};

// Either part may be empty.
std::optional<Pair> PairOf(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return std::nullopt;
  Pair pair = {text.substr(0, comma), text.substr(comma + 1)};
  for (const std::string* part : {&pair.x, &pair.y}) {
    if (!part->empty() && !texts::WholeNumber(*part)) return std::nullopt;
  }
  return pair;
}

const CLI::Validator kPair(
    [](const std::string& text) {
      return PairOf(text) ? std::string() : "'" + text + "' is not X,Y";
    },
    "X,Y");

void DeclareGraph(CLI::App& command, GraphOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  command
      .add_option("--pickup", options.pickup, "Pickup value that relative loads are multiples of")
      ->check(kNumber);
  command.add_option("--multiplier", options.multiplier, "Factor of the times; 1 unless given")
      ->check(kNumber);
  CLI::Option* const absolute =
      command.add_flag("--absolute", options.absolute, "Loads are amperes or volts");
  command.add_flag("--relative", options.relative, "Loads are multiples of the pickup value")
      ->excludes(absolute);
  CLI::Option* const milliseconds =
      command.add_flag("--ms", options.milliseconds, "Times are milliseconds");
  command
      .add_flag("--seconds", options.seconds,
                "Times are seconds; unless given, all four are "
                "as the entry says")
      ->excludes(milliseconds);
  command
      .add_option("--first", options.first,
                  "Extension point before the curve; X or Y may be "
                  "empty: as the first point has it")
      ->check(kPair);
  command.add_option("--last", options.last, "Extension point behind the curve")->check(kPair);
  command.add_option("-o,--output", options.output, "GRH file to write")
      ->required()
      ->check(kWrittenFile);
}

editor::ValueModes ModesOf(const GraphOptions& options, const tables::ParsedEntry& entry) {
  editor::ValueModes modes;
  modes.absoluteValues =
      options.absolute || (!options.relative && entry.absoluteValues.value_or(false));
  modes.milliseconds =
      options.milliseconds || (!options.seconds && entry.milliseconds.value_or(false));
  modes.pickup = options.pickup;
  modes.multiplier = editor::MultiplierWhenLeft(options.multiplier, ".");
  return modes;
}

texts::InstrumentTexts ExtensionsOf(const GraphOptions& options) {
  texts::InstrumentTexts texts;
  if (const std::optional<Pair> first = PairOf(options.first)) {
    texts.firstX = first->x;
    texts.firstY = first->y;
  }
  if (const std::optional<Pair> last = PairOf(options.last)) {
    texts.lastX = last->x;
    texts.lastY = last->y;
  }
  return texts;
}

Exit WriteGraph(const GraphOptions& options, Console& console) {
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  const fs::path output = platform::ToPath(options.output);
  if (AreOneFile(file.Path(), output)) return console.Fail(options.output + ": is the table file");
  std::optional<EntryLine> read;
  if (const std::error_code error = ReadEntry(file.Path(), options.entry, read)) {
    return console.Fail(file.Name() + ": " + error.message());
  }
  if (!read) return console.Fail(file.Name() + ": no entry '" + options.entry + "'");
  const tables::ParsedEntry entry = tables::ParseEntryLine(read->line);
  const editor::ValueModes modes = ModesOf(options, entry);
  if (!testset::CanImport(modes)) return console.Misused(kPickupNeeded);
  editor::CurveGrid grid;
  editor::ShowPoints(grid, entry.points, ".");
  const auto segments = testset::SegmentsOf(grid, modes, ExtensionsOf(options), ".");
  if (!segments) return console.Fail(read->name + ": has no points");
  const std::string bytes = testset::FormatReferenceGraph(*segments, app::Today());
  const std::error_code error = platform::ReplaceFile(
      platform::SystemFiles(), output,
      [&bytes](platform::OutputFile& written) { return written.Write(bytes); });
  return error ? console.Fail(options.output + ": not written: " + Reason(error)) : Exit::Done;
}

// grh-read

struct GraphReadOptions {
  std::string file;
  std::string pickup;
  bool absolute = false;
  bool milliseconds = false;
};

void DeclareGraphRead(CLI::App& command, GraphReadOptions& options) {
  command.add_option("GRH", options.file, "Reference graph, - for standard input")->required();
  command.add_option("--pickup", options.pickup, "Pickup value to divide the loads by")
      ->check(kNumber);
  command.add_flag("--absolute", options.absolute, "Loads stay amperes or volts");
  command.add_flag("--ms", options.milliseconds, "Times become milliseconds, else seconds");
}

Exit ReadGraph(const GraphReadOptions& options, Console& console) {
  editor::ValueModes modes;
  modes.absoluteValues = options.absolute;
  modes.milliseconds = options.milliseconds;
  modes.pickup = options.pickup;
  if (!testset::CanImport(modes)) return console.Misused(kPickupNeeded);
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  const testset::ReadGraph graph =
      testset::ReadReferenceGraph(platform::SystemFiles(), file.Path());
  if (graph.error) {
    if (graph.error->fault == testset::GraphFault::Unreadable) {
      return console.Fail(file.Name() + ": " + graph.error->error.message());
    }
    const texts::GraphTexts words;
    return console.Fail(file.Name() + ':' + std::to_string(graph.error->line) + ": " +
                        app::FaultText(graph.error->fault, words));
  }
  const testset::ImportedGraph imported = testset::ImportGraph(graph.segments, modes, {});
  for (const testset::GraphPoint& point : imported.skipped) {
    console.Warn(file.Name() + ": skipped point " + testset::CoordinateText(point.load) + ' ' +
                 testset::CoordinateText(point.time));
  }
  for (const tables::CurvePoint& point : imported.points) {
    console.WriteLine(point.load + '\t' + point.time);
  }
  return Exit::Done;
}

}  // namespace

void AddGraphCommands(Commands& commands) {
  AddCommand(commands, "grh", "Writes an entry as a reference graph", DeclareGraph, WriteGraph);
  AddCommand(commands, "grh-read", "The points of a reference graph: LOAD, tab, TIME a line",
             DeclareGraphRead, ReadGraph);
}

}  // namespace zentab::cli
